#pragma once
// `TfGENEMLIS`, "Mantenimiento de Lista", in its consultation modes: the rows
// of a definition text (forms/list_definition.h) in a read-only grid under the
// definition's title. Enter or Esc closes it; nothing is returned. Editing and
// picking rows belong to the full list editor, which is still to come.

#include <QStringList>

class QWidget;

namespace co::ui {

// Shows the rows modally until the user closes the window.
void VerLista(QWidget *parent, const QString &definicion, const QStringList &filas);

} // namespace co::ui
