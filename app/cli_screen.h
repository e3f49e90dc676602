#pragma once
// `control-obras-cli pantalla "<programa>"`: opens a screen of the menu as the
// desktop program does (the user's rights, hidden controls, currencies,
// translation: forms/screen_opening.h) and writes what it shows: its caption,
// then for a grid screen its visible column titles and rows, for a record
// screen each visible label and value. Columns are separated by "|".

#include "core/startup.h"

#include <QString>
#include <optional>

namespace co::cli {

// The text of the opened screen; nullopt after telling why it could not open
// (unknown program, no access, tables that could not be opened).
std::optional<QString> TextoPantalla(Aplicacion &aplicacion, const QString &programa);

} // namespace co::cli
