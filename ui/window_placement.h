#pragma once
// Where a work window opens: at the size it asks for, no smaller than a
// sensible minimum and never beyond the work area of the main window.

#include <QSize>

class QMdiArea;
class QMdiSubWindow;

namespace co::ui {

// The smallest a work window opens at, when the work area allows it.
inline constexpr QSize kVentanaMinima{720, 420};

// Resizes `ventana` to `deseado` within those bounds and keeps it inside the
// area; call it again once shown, as the area places a window when it shows.
void ColocarVentana(const QMdiArea &area, QMdiSubWindow &ventana, QSize deseado);

} // namespace co::ui
