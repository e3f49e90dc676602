#pragma once
// Where the files the program reads at run time live (DATABASE.TXT, the
// dictionaries, demo data): the folder named by CONTROL_OBRAS_DATOS when set,
// else "share/control-obras/data" beside the installed program, else the
// source tree's data/ folder of the build.

#include <QString>

namespace co {

QString CarpetaDatosAplicacion();

} // namespace co
