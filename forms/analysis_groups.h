#pragma once
// The analysis groups of a master's current record, as a component any record
// screen adds: the `GRANTAB` rows of the master's table and the record's key
// in `Table2` / `DataSource2` / `DBGrid2`, each group's category and
// description beside its code (from `GRANALIS`), the code searched in
// `GRANALIS` by F2 or a double click (only with a master record to hang it
// from), new rows keyed to the current record, the grid following the current
// record, and pending rows posted before the master's record posts (a refusal
// is told and stops that post).

#include "forms/record_master.h"

namespace co::forms {

class GruposAnalisis {
public:
    // `tablaMaestro` names the master's table in `GRANTAB`; `campoClave` is
    // the key field of its `Table1`.
    GruposAnalisis(MaestroTabla &maestro, const QString &tablaMaestro, const QString &campoClave);

    Table &Tabla() const { return *tabla_; }
    DBGrid &Rejilla() const { return *rejilla_; }

private:
    void seguirMaestro();
    void grabarPendientes();

    MaestroTabla &maestro_;
    QString tablaMaestro_;
    QString campoClave_;
    Table *tabla_ = nullptr;
    DBGrid *rejilla_ = nullptr;
};

} // namespace co::forms
