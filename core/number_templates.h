#pragma once
// Number templates: the display formats of numeric fields, from the fields
// `PlantillaNumericaStd` (the global mask) and `PlantillaNumericaExt` of
// `PARAGENE`. The latter is a key=value block with keys `PlantillaNumerica1` to
// `PlantillaNumerica5`, each "<format> <fragment>,<fragment>,..." and the switch
// `PlantillasExt`.

#include "core/messages.h"

#include <QString>
#include <QStringList>
#include <array>

namespace co {

inline constexpr int kNumeroPlantillas = 5;

struct PlantillaNumerica {
    QString mascara;
    QStringList fragmentos;
};

struct PlantillasNumericas {
    QString mascaraGlobal;
    std::array<PlantillaNumerica, kNumeroPlantillas> plantillas;
    bool PlantillasExt = false;

    // The format of a numeric field: the mask of the first template with a fragment
    // found in the field's name, else the global mask.
    QString FormatoCampo(const QString &campo) const;
};

// The load done when the data module is created. `mascaraActual` is the global
// mask in force; it is replaced by `plantillaStd` unless that is empty or
// "Ninguna". A template whose key is missing takes the global mask and no fragments.
PlantillasNumericas CargarPlantillasNumericas(const QString &plantillaStd,
                                              const QString &plantillaExt,
                                              const QString &mascaraActual = {});

// The block that `AsignarlasPlantillasporDefecto1Click` restores.
QString PlantillasPorDefecto();

// `ConfigurarPlantilla`: asks for the format and the field names of template
// `numero` (prompts start from the current ones) and writes
// `PlantillaNumerica<numero>=<format> <names>` into `bloque`. Blanks are taken out of
// the names, since a blank ends the list. Returns false, leaving `bloque` as it
// was, for a number out of 1..5 or an empty or blank-holding format.
bool ConfigurarPlantilla(int numero, QString &bloque, Messenger &mensajes);

} // namespace co
