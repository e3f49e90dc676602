#pragma once
// The text window of a memo: a multi-line editor under the memo's title, with
// "&Aceptar" and "&Cancelar". Enter starts a new line; the text comes back as
// typed, line ends included.

#include <QString>
#include <optional>

class QWidget;

namespace co::ui {

// The edited text; nullopt when the window was cancelled.
std::optional<QString> EditarTextoMemo(QWidget *parent, const QString &titulo,
                                       const QString &texto);

} // namespace co::ui
