#pragma once
// Spanish given names, surnames and the words of firm names and legal forms.

#include <QList>
#include <QString>

namespace co::demo {

const QList<QString> &NombresPila();
const QList<QString> &Apellidos();

struct FormaJuridica {
    QString sufijo; // ", S.L." as written after the name
    QChar letraCIF; // organisation letter of its CIF
};
const QList<FormaJuridica> &FormasJuridicas();

// Trades of suppliers and of client firms, as the first words of a name.
const QList<QString> &ActividadesProveedor();
const QList<QString> &ActividadesCliente();
// Place-like words that close a firm name ("del Henares", "Levante").
const QList<QString> &ComplementosNombre();

} // namespace co::demo
