// FormView draws what a form declares: controls on a tab page inside that
// page, with their captions as labels, and the rest on the form itself; a page
// the form hides loses its tab; a data memo is a multi-line editor whose lines
// reach the field ending in CR LF.
#include "ui/form_view.h"

#include "forms/table.h"
#include "support/layer_fixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTest>
#include <gtest/gtest.h>

namespace co::ui {
namespace {

using forms::ComponentKind;

class FormViewPages : public co::test::LayerTest {};

TEST_P(FormViewPages, ControlsOnATabPageAreDrawnOnIt) {
    forms::RutinasFormulario rutinas(*datos_);
    auto form = std::make_unique<forms::Form>(QStringLiteral("fPRUEBA"), QStringLiteral("Prueba"));
    forms::Component &general = form->AddControl(
        ComponentKind::TabSheet, QStringLiteral("TabSheet1"), QStringLiteral("General"));
    forms::Component &grupos = form->AddControl(ComponentKind::TabSheet, QStringLiteral("GATablas"),
                                                QStringLiteral("Grupos de Análisis"));
    form->AddControl(ComponentKind::Edit, QStringLiteral("EditNombre"), QStringLiteral("Nombre"))
        .Parent = &general;
    form->AddControl(ComponentKind::Edit, QStringLiteral("EditGrupo"), QStringLiteral("Grupo"))
        .Parent = &grupos;
    form->AddControl(ComponentKind::Edit, QStringLiteral("EditSuelto"));
    FormView view(std::move(form), rutinas);

    QWidget *pagina1 = view.widgetFor(QStringLiteral("TabSheet1"));
    QWidget *pagina2 = view.widgetFor(QStringLiteral("GATablas"));
    ASSERT_NE(pagina1, nullptr);
    ASSERT_NE(pagina2, nullptr);
    EXPECT_TRUE(pagina1->isAncestorOf(view.widgetFor(QStringLiteral("EditNombre"))));
    EXPECT_TRUE(pagina2->isAncestorOf(view.widgetFor(QStringLiteral("EditGrupo"))));
    EXPECT_FALSE(pagina1->isAncestorOf(view.widgetFor(QStringLiteral("EditGrupo"))));
    EXPECT_FALSE(pagina1->isAncestorOf(view.widgetFor(QStringLiteral("EditSuelto"))));
    EXPECT_FALSE(pagina2->isAncestorOf(view.widgetFor(QStringLiteral("EditSuelto"))));
    auto *tabs = view.findChild<QTabWidget *>();
    ASSERT_NE(tabs, nullptr);
    EXPECT_EQ(tabs->count(), 2);
    EXPECT_EQ(tabs->tabText(1), QStringLiteral("Grupos de Análisis"));
    QStringList etiquetas;
    for (QLabel *l : pagina1->findChildren<QLabel *>())
        etiquetas << l->text();
    EXPECT_EQ(etiquetas, QStringList{QStringLiteral("Nombre")});
}

TEST_P(FormViewPages, AHiddenPageLosesItsTabAndAMemoKeepsItsLines) {
    ok(QStringLiteral("CREATE TABLE PRUMEMO (Codigo INTEGER NOT NULL PRIMARY KEY, Notas TEXT, "
                      "Nombre VARCHAR(20))"));
    ok(QStringLiteral("INSERT INTO PRUMEMO (Codigo, Notas, Nombre) VALUES ('1', 'uno', 'A')"));
    forms::RutinasFormulario rutinas(*datos_);
    auto form = std::make_unique<forms::Form>(QStringLiteral("fPRUEBA"), QStringLiteral("Prueba"));
    auto &tabla =
        form->Add<forms::Table>(*datos_, QStringLiteral("Table1"), QStringLiteral("PRUMEMO"));
    auto &fuente = form->Add<forms::DataSource>(QStringLiteral("DataSource1"), &tabla);
    forms::Component &datos = form->AddControl(ComponentKind::TabSheet, QStringLiteral("PagDatos"),
                                               QStringLiteral("Datos"));
    forms::Component &otra = form->AddControl(ComponentKind::TabSheet, QStringLiteral("PagOtra"),
                                              QStringLiteral("Otra"));
    form->Add<forms::DataControl>(ComponentKind::DBMemo, QStringLiteral("MemoNotas"), &fuente,
                                  QStringLiteral("Notas"))
        .Parent = &datos;
    form->Add<forms::DataControl>(ComponentKind::DBEdit, QStringLiteral("EditNombre"), &fuente,
                                  QStringLiteral("Nombre"))
        .Parent = &otra;
    tabla.Open();
    forms::Form *logica = form.get();
    FormView view(std::move(form), rutinas);
    view.show();
    auto *tabs = view.findChild<QTabWidget *>();
    ASSERT_NE(tabs, nullptr);
    EXPECT_EQ(tabs->count(), 2);
    EXPECT_TRUE(tabs->isTabVisible(1));
    // Hiding a page hides its tab; showing the page does not lay it over the current one.
    otra.Visible = false;
    view.refresh();
    EXPECT_FALSE(tabs->isTabVisible(1));
    otra.Visible = true;
    view.refresh();
    EXPECT_TRUE(tabs->isTabVisible(1));
    EXPECT_EQ(tabs->currentIndex(), 0);
    EXPECT_FALSE(view.widgetFor(QStringLiteral("EditNombre"))->isVisible());

    auto *memo = qobject_cast<QPlainTextEdit *>(view.widgetFor(QStringLiteral("MemoNotas")));
    ASSERT_NE(memo, nullptr);
    EXPECT_EQ(memo->toPlainText(), QStringLiteral("uno"));
    memo->setFocus();
    memo->moveCursor(QTextCursor::End);
    QTest::keyClick(memo, Qt::Key_Return);
    QTest::keyClicks(memo, QStringLiteral("dos"));
    EXPECT_EQ(logica->ActiveControl(), logica->FindComponent(QStringLiteral("MemoNotas")));
    EXPECT_EQ(tabla.State(), forms::DatasetState::Edit);
    EXPECT_EQ(tabla.FieldByName(QStringLiteral("Notas")).AsString(), QStringLiteral("uno\r\ndos"));
    // A value with CR LF shows as lines.
    tabla.Cancel();
    tabla.Edit();
    tabla.FieldByName(QStringLiteral("Notas")).SetAsString(QStringLiteral("a\r\nb\r\nc"));
    memo->clearFocus();
    view.refresh();
    EXPECT_EQ(memo->toPlainText(), QStringLiteral("a\nb\nc"));
    EXPECT_EQ(memo->document()->blockCount(), 3);
}

CO_ON_BOTH_BACKENDS(FormViewPages);

} // namespace
} // namespace co::ui
