#pragma once
// Names of temporary tables, kept in `NOMBTTEM` of the general data, and the
// creation of a temporary table from its definition.
//
// Long name:  "TEMP_" + machine id + "_" + owner + "_" + table number + "_" +
//             program number + "_" + user code.
// Short name: "TEMP" + `Contador` in six digits + "_" + owner, cut to 20
//             characters. It is the name of the table in the back-end.
// A long name keeps its short name for ever, so the set of temporary tables of
// an installation stays bounded. The owner is the component name of the form or
// data object that owns the table; an empty owner is "Unknown".
//
// Temporary tables live in the general data on both back-ends: the statements of
// the business code reach them as general alias + ".dbo." + name from any
// connection, and names differ by machine, user, owner and number.

#include "core/database.h"

#include <QString>

namespace co {

class CreadorTablas;

// Width of `NombreTablaTemporalOrg` and of the short name.
inline constexpr int kLongitudNombreLargo = 150;
inline constexpr int kLongitudNombreCorto = 20;
// Program number of this program in the suite.
inline constexpr int kProgramaControlObras = 1;

// The program number that goes into long names: fixed per executable, set once
// at start (kProgramaControlObras unless set).
int NumeroPrograma();
void FijarNumeroPrograma(int numero);

// Twelve upper-case hexadecimal digits, stable per machine: the first 48 bits of
// the machine's unique id, else the first non-zero address of a physical network
// adapter, else "000000000000".
QString IdentificadorMaquina();

QString NombreLargoTemporal(const QString &propietario, int numero, const QString &codigoUsuario);

// `NombreCortoTemporal`: the short name of `nombreLargo`, allocating one in
// `NOMBTTEM` when it has none. A number taken by another user at the same moment
// (a key violation) makes it read again and take the next one, with no limit.
// Any other failure stops it: false, with the reason in `motivo`.
bool NombreCortoTemporal(TModuloDatos &datos, const QString &nombreLargo,
                         const QString &propietario, QString *nombre, QString *motivo = nullptr);

// `NombreTablaTemporal`: the short name of table `numero` of `propietario` for
// the session's user on this machine and program.
bool NombreTablaTemporal(TModuloDatos &datos, const QString &propietario, int numero,
                         QString *nombre, QString *motivo = nullptr);

// Makes the table of a temporary definition ("Tabla Temporal" or
// "Tabla Temporal " + number, then its lines) anew for `propietario`: the old
// table of that name is dropped first. `nombre` gets the table's name.
// A text that is not a temporary definition is refused with a Spanish `motivo`.
bool CrearTablaTemporal(TModuloDatos &datos, CreadorTablas &creador, const QString &propietario,
                        const QString &definicion, QString *nombre, QString *motivo = nullptr);

} // namespace co
