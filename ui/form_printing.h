#pragma once
// "Formato Original" and "A Página Completa" of the "Ficha" menu: the printer
// dialog, and on acceptance an image of the window on one page, at its own
// proportions centred on the page, or stretched to fill it.

class QPrinter;
class QWidget;

namespace co::ui {

// Asks the printer dialog over `ventana`; false when it was cancelled.
bool ImprimirVentana(QWidget &ventana, bool paginaCompleta);
// The image of `ventana` on the printer's page, without a dialog.
void PintarVentana(QWidget &ventana, QPrinter &printer, bool paginaCompleta);

} // namespace co::ui
