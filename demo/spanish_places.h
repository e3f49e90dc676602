#pragma once
// Real Spanish provinces with the two-digit postcode prefix that belongs to
// them, some of their towns with a postcode range, and street names.

#include <QList>
#include <QString>

namespace co::demo {

struct Poblacion {
    QString nombre;
    int codigoPostal; // first postcode of the town
    int variantes;    // postcodes codigoPostal .. codigoPostal + variantes - 1 exist
};

struct Provincia {
    QString nombre;
    int prefijo; // the first two digits of its postcodes
    QString prefijoTelefono;
    QList<Poblacion> poblaciones;
};

const QList<Provincia> &Provincias();
// The province whose postcodes start with the two digits of `codigoPostal`;
// nullptr when none.
const Provincia *ProvinciaDeCodigoPostal(const QString &codigoPostal);
const QList<QString> &Calles();

} // namespace co::demo
