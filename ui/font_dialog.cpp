#include "ui/font_dialog.h"

#include <QFontDialog>
#include <QHeaderView>
#include <QTableView>

namespace co::ui {

namespace {

std::optional<QFont> dialogoQt(const QFont &actual, QWidget *parent) {
    bool ok = false;
    const QFont f = QFontDialog::getFont(&ok, actual, parent);
    return ok ? std::optional<QFont>(f) : std::nullopt;
}

SelectorFuente &selector() {
    static SelectorFuente s = dialogoQt;
    return s;
}

} // namespace

void FijarSelectorFuente(SelectorFuente s) {
    selector() = s ? std::move(s) : SelectorFuente(dialogoQt);
}

bool DialogoFuente(QWidget &control, bool rejillaDatos) {
    const std::optional<QFont> f = selector()(control.font(), &control);
    if (!f)
        return false;
    control.setFont(*f);
    auto *grid = qobject_cast<QTableView *>(&control);
    if (rejillaDatos && grid) {
        QHeaderView *titulos = grid->horizontalHeader();
        titulos->setFont(*f);
        // Headers draw their text with ButtonText; WindowText for styles that do not.
        QPalette p = titulos->palette();
        p.setColor(QPalette::ButtonText, QColor(0x00, 0x00, 0x80));
        p.setColor(QPalette::WindowText, QColor(0x00, 0x00, 0x80));
        titulos->setPalette(p);
    }
    return true;
}

} // namespace co::ui
