#pragma once
// The texts of the search windows, apart from any window or connection: the
// conditions and statement of a search, the row limit, the per-user option
// entries, the status line and the spelling-variant pattern of the search by
// approximation.
//
// Conditions: the parts of the field list (";") and of the typed data (","
// read as ";") are walked together until one runs out; every pair but the last
// is an equality, the last a lower bound. Partial mode turns them into a match
// by start, phonetic mode into a match anywhere; both rewrites run over the
// whole text, as they always have.

#include <QString>
#include <QStringList>
#include <optional>

namespace co::forms {

enum class ModoBusqueda { Aproximada, Parcial, Fonetica };

struct PeticionBusqueda {
    QString tabla;
    QString listaCampos; // the text of `ListaCamposBusqueda`
    QString dato;        // the text of `DatoABuscar`
    ModoBusqueda modo = ModoBusqueda::Aproximada;
    QString restriccion;
    bool ordenados = false;
    QString columnas; // the column list, already decided
    // Key fields (";") that end the order, so that it is total: rows read in
    // packets then come in one order every time. Empty: the order is the user's.
    QString clave;
    QString formatoFechaSQL = QStringLiteral("yyyy-mm-dd");
    // Text fields of the table: their conditions ignore the case of letters,
    // as a clerk expects ("metro" finds "Metro cuadrado") on every back-end.
    QStringList camposTexto;
};

// The conditions of the data, without " WHERE "; empty without data.
QString CondicionesBusqueda(const PeticionBusqueda &p);
// "SELECT <columns> FROM <table> WITH(NOLOCK) <where><order>"; the order is the
// field list when ordered, followed by the key fields not in it.
QString SentenciaBusqueda(const PeticionBusqueda &p);
// The limit text as `TOP n`: nullopt for "Ilimitado", 1 for a text reading 0,
// `porDefecto` for a text that is no number.
std::optional<int> LimiteBusqueda(const QString &texto, int porDefecto = 100);
// The first "SELECT" becomes "SELECT TOP n".
QString ConLimite(const QString &sql, int limite);

// "Parcial", "Aproximada" or "Fonética".
QString NombreModo(ModoBusqueda modo);
// "Búsqueda <mode> por <fields>".
QString TextoEstadoBusqueda(ModoBusqueda modo, const QString &listaCampos);

// One table's entry of `DatosBusqueda`: the field list and the marks.
struct OpcionesTabla {
    QString listaCampos;
    ModoBusqueda modo = ModoBusqueda::Aproximada;
    bool ordenados = false;
    bool memos = false;
};
// The entry text "<fields>(F|P|A)[(O)][(M)]".
QString TextoOpcionesTabla(const OpcionesTabla &o);
OpcionesTabla LeerOpcionesTabla(const QString &texto);

// The stored text "<table>:<value>,<table>:<value>" read as entries.
// Entries are found by table name, case-insensitively.
std::optional<QString> EntradaOpciones(const QString &almacenado, const QString &tabla);
// The stored text with the table's entry replaced (or added); "=" is written
// ":", blank entries go.
QString ConEntradaOpciones(const QString &almacenado, const QString &tabla, const QString &valor);

// The pattern of a typed value: lower-cased, accents and spelling variants
// folded, then every letter widened to its class ("[bv]", "[ct][hxz]"...), in
// the order of replacements the search by approximation has always used.
QString PatronAproximado(const QString &valor);
// A LIKE pattern with "%", "_" and "[...]" classes as a case-insensitive regular
// expression over the whole text: classes keep their letters and gain their
// upper case, everything else is escaped.
QString PatronComoExpresion(const QString &patronLike);

} // namespace co::forms
