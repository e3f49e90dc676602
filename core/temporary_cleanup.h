#pragma once
// Rubbish of earlier runs, cleared at start.
//
// Files: `_QS*.*` in the application folder, `QRP*.TMP` in the system's
// temporary folder, `TEMP*.*` in the process's private folder. Names are matched
// in any case; a file that cannot be deleted is skipped, with no message.
//
// Tables: the temporary tables of this machine, user and program in the general
// data (the long names of `NOMBTTEM` tell them). Two runs of one program by one
// user on one machine share those names, so they are dropped only when no other
// such run is alive. Each run holds a claim for its whole life: a lock file in
// the machine's temporary folder, one of a few slots per installation, user and
// program; a run that ends, even by a crash, frees its slot. The rows of
// `NOMBTTEM` stay: a long name keeps its short name for ever.

#include "core/database.h"

#include <QDir>
#include <QLockFile>
#include <QString>
#include <memory>

namespace co {

// Returns the number of files deleted.
int LimpiarArchivosTemporales(const QString &carpetaAplicacion, const QString &carpetaTemporal,
                              const QString &carpetaPrivada);

class TemporaryTablesClaim {
public:
    static constexpr int kSlots = 16;

    explicit TemporaryTablesClaim(const TfGENEINIC &sesion,
                                  const QString &carpetaBloqueos = QDir::tempPath());
    ~TemporaryTablesClaim();
    TemporaryTablesClaim(const TemporaryTablesClaim &) = delete;
    TemporaryTablesClaim &operator=(const TemporaryTablesClaim &) = delete;

    // A slot is held by this run.
    bool held() const { return lock_ != nullptr; }
    // When the claim was made, no other live run held a slot.
    bool alone() const { return alone_; }

private:
    std::unique_ptr<QLockFile> lock_;
    bool alone_ = false;
};

// Drops the leftover temporary tables of the session's machine, user and
// program. Returns how many were dropped; -1 when the claim is not alone, and
// then nothing is touched.
int LimpiarTablasTemporales(TModuloDatos &datos, const TemporaryTablesClaim &claim);

} // namespace co
