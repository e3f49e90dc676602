#pragma once
// The definition text of the generic list windows: `Clave=Valor` lines in any
// order, an absent key empty. Rows travel as lines of "|"-separated fields; a
// row shorter than the columns reads its missing fields as empty.
//
// Column definitions are ";"-separated entries of up to seven comma-separated
// positions: field, type word ("ftString", "ftFloat", "ftMemo"...), length,
// flags ("ReadOnly"), formula, width in pixels (0 or absent: 100 for a float,
// the field's length in characters for the rest), search table.

#include <QList>
#include <QString>
#include <QStringList>

namespace co::forms {

struct ColumnaLista {
    QString campo;
    QString tipo;
    int longitud = 0;
    bool soloLectura = false;
    QString formula;
    int ancho = 0; // pixels; 0 when the definition leaves it to the window
    QString tabla;
    // The column of `EstiloLinea` gives a row its style and is never shown.
    bool Oculta() const { return campo.compare(u"EstiloLinea", Qt::CaseInsensitive) == 0; }
};

struct DefinicionLista {
    QString titulo;
    // `Formato`: left, top, width, height; 0 keeps the window's own.
    int izquierda = 0, arriba = 0, ancho = 0, alto = 0;
    QString modo; // "Normal", "Consulta", "Consulta,Sin Seleccion"...
    QList<ColumnaLista> columnas;

    // A consultation mode: rows are shown, never changed.
    bool SoloConsulta() const { return modo.startsWith(u"Consulta", Qt::CaseInsensitive); }
};

DefinicionLista LeerDefinicionLista(const QString &definicion);

// The fields of one row, as many as `columnas`.
QStringList CamposFila(const QString &fila, qsizetype columnas);

} // namespace co::forms
