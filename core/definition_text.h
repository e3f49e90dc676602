#pragma once
// The table definition language, as text. No file and no connection here.
//
// One line per field, index or statement, "/" between positions, CR LF between
// lines:
//   0 table (empty in a temporary definition)   1 kind: C field, I index, SQL
//   2 order number                              3 field or index name
//   4 C: type word; I: the index fields joined by ";"
//   5 C: length; I: options ("-" descending)    6 C: mark ("*" key, "NO" user field)
// A line may end in "|" + a text (a date of change); the positions are read
// before it and the text counts only for ListaTablas.
// A table's lines stand together; a scan for a table stops at the first line of
// another table after one of its own. Names are compared in upper case.
// A temporary definition starts with the line "Tabla Temporal" or
// "Tabla Temporal " + number.

#include <QString>
#include <QStringList>

namespace co {

struct LineaDefinicion {
    QString tabla;
    QString clase; // "C", "I" or "SQL"
    QString orden;
    QString nombre;
    QString tipo;     // C: type word; I: fields joined by ";"
    QString longitud; // C: length; I: options
    QString marca;
    QString fecha; // the text after "|"

    bool esCampo() const { return clase == u"C"; }
    bool esIndice() const { return clase == u"I"; }
    bool esClave() const { return marca == u"*"; }
};

LineaDefinicion LeerLineaDefinicion(const QString &linea);

// The lines of a text, CR LF or LF between them.
QStringList LineasDefinicion(const QString &texto);

bool EsDefinicionTemporal(const QString &texto);
// The number of "Tabla Temporal n"; 0 when the line has none, -1 when the text
// is not a temporary definition.
int NumeroTablaTemporal(const QString &texto);

// The lines of one table, each ended by CR LF. `partes` holds words among
// "Campos", "Indices" and "SQL" (empty: all of them), given in that order.
// In a temporary definition pass an empty table name.
QString DefinicionTabla(const QString &tabla, const QString &texto, const QString &partes = {});

// True when `partes` names the part `parte` as a whole word ("Campos" is not
// named by "CamposUsuario").
bool PideParte(const QString &partes, const QString &parte);

// Merges one customer file into `texto`. Lines of "[Definiciones Nuevas o
// Sustitutivas]" (the section a file starts in) go ahead of the text, so they
// replace a table of the same name; tables of "[Definiciones Complementarias]"
// are joined part by part with their base definition, base first.
QString MezclarEstructuras(const QString &texto, const QString &adiciones);

// Sorted distinct names of the tables with a dated line; with "IncluirFecha"
// each entry is name + "|" + date.
QStringList ListaTablas(const QString &texto, const QString &opciones = {});

} // namespace co
