#pragma once
// `BUSQUEDA.TXT` in the program's folder: lines `<control name>=<table name>`,
// one association per control name. The file is read whole, changed and
// written whole.

#include <QString>

namespace co::forms {

QString ArchivoAsociaciones(const QString &carpeta);
// The table associated with a control; empty when none.
QString TablaAsociada(const QString &carpeta, const QString &control);
// Writes (or replaces) the control's association; empty on success, else the reason.
QString AsociarControl(const QString &carpeta, const QString &control, const QString &tabla);

} // namespace co::forms
