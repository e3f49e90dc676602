#pragma once
// What a Spanish contractor's masters hold: budget chapters with their items,
// article families, machines, subcontracted trades, staff categories,
// incidents and banks. Fixed texts; the generator draws prices and quantities.

#include <QList>
#include <QString>

namespace co::demo {

struct PartidaCatalogo {
    QString codigo;      // UNIDADOB code
    QString descripcion; // at most 40 characters
    QString ampliada;    // long description
    QString unidad;
    double costo; // typical unit cost
    double cantidadMin, cantidadMax;
};

struct CapituloCatalogo {
    QString descripcion;
    bool obligatorio; // every budget has it
    QList<PartidaCatalogo> partidas;
};
// In construction order, from demolition to waste management.
const QList<CapituloCatalogo> &CapitulosCatalogo();

struct FamiliaArticulos {
    QString codigo; // analysis group and article code prefix
    QString descripcion;
    QList<QString> bases;     // article names
    QList<QString> variantes; // sizes or grades appended
    QString unidad;
    double precioMin, precioMax;
    int proveedor; // index of the supplier trade (ActividadesProveedor)
};
const QList<FamiliaArticulos> &FamiliasArticulos();

struct MaquinaCatalogo {
    QString descripcion;
    double cuota; // cost per hour of rate 1
};
const QList<MaquinaCatalogo> &MaquinasCatalogo();

struct SubcontratoCatalogo {
    QString descripcion;
    double precio;
    int proveedor; // index of the supplier trade
};
const QList<SubcontratoCatalogo> &SubcontratosCatalogo();

struct CategoriaCatalogo {
    QString descripcion;
    double tarifaNormal; // cost per normal hour
    int plantilla;       // operators of the category
};
const QList<CategoriaCatalogo> &CategoriasCatalogo();

struct IncidenciaCatalogo {
    QString descripcion;
    QString tipo; // "Trabajo" or "Maquina"
    QString imputable;
};
const QList<IncidenciaCatalogo> &IncidenciasCatalogo();

struct BancoCatalogo {
    QString entidad; // four digits
    QString nombre;
    QString swift;
};
const QList<BancoCatalogo> &BancosCatalogo();

// Works names: the kind of job, completed with a place.
const QList<QString> &TiposObra();

} // namespace co::demo
