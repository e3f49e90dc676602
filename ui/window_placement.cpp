#include "ui/window_placement.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace co::ui {

void ColocarVentana(const QMdiArea &area, QMdiSubWindow &ventana, QSize deseado) {
    QSize sitio = area.viewport()->size();
    if (sitio.width() < 100 || sitio.height() < 100)
        sitio = area.size(); // not laid out yet
    const QSize tamano = deseado.expandedTo(kVentanaMinima).boundedTo(sitio);
    // A content that asks for more than the area must still fit in it.
    ventana.setMinimumSize(ventana.minimumSizeHint().boundedTo(tamano));
    if (QWidget *dentro = ventana.widget())
        dentro->setMinimumSize(dentro->minimumSizeHint().boundedTo(tamano));
    ventana.resize(tamano);
    const QPoint esquina = ventana.pos();
    const int x = std::clamp(esquina.x(), 0, std::max(0, sitio.width() - tamano.width()));
    const int y = std::clamp(esquina.y(), 0, std::max(0, sitio.height() - tamano.height()));
    if (QPoint(x, y) != esquina)
        ventana.move(x, y); // only then: an unmoved window is placed by the area
}

} // namespace co::ui
