#include "ui/list_window.h"

#include "forms/list_definition.h"

#include <QDialog>
#include <QFontMetrics>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTableWidget>
#include <QVBoxLayout>

namespace co::ui {
namespace {

// Enter closes the consultation as Esc does.
class VentanaLista : public QDialog {
public:
    using QDialog::QDialog;

protected:
    void keyPressEvent(QKeyEvent *e) override {
        if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter)
            accept();
        else
            QDialog::keyPressEvent(e);
    }
};

int anchoColumna(const forms::ColumnaLista &c, const QFontMetrics &fm) {
    if (c.ancho > 0)
        return c.ancho;
    if (c.tipo.compare(u"ftFloat", Qt::CaseInsensitive) == 0)
        return 100;
    // A memo's length says nothing of its text: it takes what room is left.
    if (c.tipo.compare(u"ftMemo", Qt::CaseInsensitive) == 0)
        return fm.horizontalAdvance(u'X') * 40;
    return fm.horizontalAdvance(u'X') * std::max(6, c.longitud) + 8;
}

} // namespace

void VerLista(QWidget *parent, const QString &definicion, const QStringList &filas) {
    const forms::DefinicionLista d = forms::LeerDefinicionLista(definicion);
    VentanaLista ventana(parent);
    ventana.setObjectName(QStringLiteral("fGENEMLIS"));
    ventana.setWindowTitle(d.titulo.isEmpty() ? QStringLiteral("Mantenimiento de Lista") : d.titulo);
    auto *layout = new QVBoxLayout(&ventana);
    auto *grid = new QTableWidget(&ventana);
    grid->setObjectName(QStringLiteral("DBGrid1"));
    layout->addWidget(grid);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setWordWrap(false);
    grid->setColumnCount(static_cast<int>(d.columnas.size()));
    grid->setRowCount(static_cast<int>(filas.size()));
    QStringList titulos;
    for (const forms::ColumnaLista &c : d.columnas)
        titulos << c.campo;
    grid->setHorizontalHeaderLabels(titulos);
    grid->verticalHeader()->hide();
    int ancho = 0;
    for (int col = 0; col < d.columnas.size(); ++col) {
        const forms::ColumnaLista &c = d.columnas[col];
        grid->setColumnHidden(col, c.Oculta());
        grid->setColumnWidth(col, anchoColumna(c, grid->fontMetrics()));
        if (!c.Oculta())
            ancho += grid->columnWidth(col);
    }
    for (int r = 0; r < filas.size(); ++r) {
        const QStringList campos = forms::CamposFila(filas[r], d.columnas.size());
        for (int col = 0; col < campos.size(); ++col) {
            auto *celda = new QTableWidgetItem(campos[col]);
            celda->setToolTip(campos[col]);
            grid->setItem(r, col, celda);
        }
    }
    grid->horizontalHeader()->setStretchLastSection(true);
    ventana.resize(std::max(d.ancho, std::min(ancho + 40, 1000)), d.alto > 0 ? d.alto : 320);
    grid->setFocus();
    ventana.exec();
}

} // namespace co::ui
