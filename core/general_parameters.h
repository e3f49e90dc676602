#pragma once
// The company's general parameters, the one record of `PARAGENE` (screen
// `TfGENEPARA`): its pages, the defaults of a new record and the rules of a save.

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantHash>

namespace co {

inline constexpr const char *kPlantillaNumericaStdPorDefecto = "#,###.##";

struct PaginaParametros {
    QString pagina;
    QStringList campos;
};

// The pages of `TfGENEPARA` with their fields, in screen order.
const QList<PaginaParametros> &PaginasPARAGENE();

// Field values of a new record, in field order. Whole-number fields hold int,
// decimal fields double, the rest text.
const QList<QPair<QString, QVariant>> &ValoresInicialesPARAGENE();

// Choices the screen offers for some text fields, the default first.
QStringList OpcionesCampoPARAGENE(const QString &campo);

// The rules of `pbGrabarClick` on a record held as field -> value: an empty
// `PlantillaNumericaStd` becomes "#,###.##"; the same currency as euro and national
// currency is refused (an empty code or 0 is no currency). Returns empty when the record may be
// saved, else the message.
QString ComprobarGrabacionPARAGENE(QVariantHash &registro);

} // namespace co
