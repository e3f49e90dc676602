// FormView draws what a form declares: controls on a tab page inside that
// page, with their captions as labels, and the rest on the form itself.
#include "ui/form_view.h"

#include "support/layer_fixture.h"

#include <QLabel>
#include <QTabWidget>
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

CO_ON_BOTH_BACKENDS(FormViewPages);

} // namespace
} // namespace co::ui
