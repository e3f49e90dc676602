#pragma once
// Ctrl+L: the font dialog on a grid or text control. The chosen font goes to
// the control; on a data grid it goes to the cells and to the titles as well,
// and the titles are drawn navy. Kept in memory only, for the window's life.
// The dialog is a replaceable chooser so that tests answer it without a modal loop.

#include <QFont>
#include <functional>
#include <optional>

class QWidget;

namespace co::ui {

// The font chosen starting from `actual`; nullopt when cancelled.
using SelectorFuente = std::function<std::optional<QFont>(const QFont &actual, QWidget *parent)>;

// Replaces the chooser (QFontDialog); an empty one puts QFontDialog back.
void FijarSelectorFuente(SelectorFuente selector);

// Asks for a font and gives it to `control`; false, and nothing changed, when cancelled.
bool DialogoFuente(QWidget &control, bool rejillaDatos);

} // namespace co::ui
