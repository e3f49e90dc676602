#include "ui/form_printing.h"

#include <QPainter>
#include <QPixmap>
#include <QPrintDialog>
#include <QPrinter>
#include <QWidget>

namespace co::ui {

void PintarVentana(QWidget &ventana, QPrinter &printer, bool paginaCompleta) {
    const QPixmap imagen = ventana.grab();
    QPainter painter(&printer);
    const QRect pagina = painter.viewport();
    QSize tamano = imagen.size();
    tamano.scale(pagina.size(), paginaCompleta ? Qt::IgnoreAspectRatio : Qt::KeepAspectRatio);
    const QRect destino(pagina.x() + (pagina.width() - tamano.width()) / 2,
                        pagina.y() + (pagina.height() - tamano.height()) / 2, tamano.width(),
                        tamano.height());
    painter.drawPixmap(destino, imagen);
}

bool ImprimirVentana(QWidget &ventana, bool paginaCompleta) {
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialogo(&printer, &ventana);
    dialogo.setObjectName(QStringLiteral("DialogoImpresora"));
    if (dialogo.exec() != QDialog::Accepted)
        return false;
    PintarVentana(ventana, printer, paginaCompleta);
    return true;
}

} // namespace co::ui
