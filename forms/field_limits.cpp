#include "forms/field_limits.h"

#include "forms/field.h"
#include "forms/pick_list_check.h"

#include <QRegularExpression>
#include <limits>
#include <optional>
#include <utility>

namespace co::forms {
namespace {

QString valorDe(const Field &campo, const QString &resto) {
    return QStringLiteral("¡El valor de ") + EtiquetaCampo(campo.FieldName()) + resto +
           QStringLiteral("! Repita por favor");
}

// The range of a whole-number type; nullopt for the others.
std::optional<std::pair<qlonglong, qlonglong>> rangoEntero(TipoCampo tipo) {
    switch (tipo) {
    case TipoCampo::ftSmallint:
        return std::pair<qlonglong, qlonglong>{std::numeric_limits<qint16>::min(),
                                               std::numeric_limits<qint16>::max()};
    case TipoCampo::ftWord:
        return std::pair<qlonglong, qlonglong>{0, std::numeric_limits<quint16>::max()};
    case TipoCampo::ftInteger:
    case TipoCampo::ftAutoInc:
        return std::pair<qlonglong, qlonglong>{std::numeric_limits<qint32>::min(),
                                               std::numeric_limits<qint32>::max()};
    default:
        return std::nullopt;
    }
}

} // namespace

bool EsCampoPorcentaje(const QString &nombreCampo) {
    static const QRegularExpression parametro(QStringLiteral("^(Iva|Recargo)[1-5]$"),
                                              QRegularExpression::CaseInsensitiveOption);
    return nombreCampo.startsWith(QLatin1String("Porcentaje"), Qt::CaseInsensitive) ||
           parametro.match(nombreCampo).hasMatch();
}

QString ProblemaValorCampo(const Field &campo) {
    const QVariant valor = campo.Value();
    if (valor.isNull() || campo.Calculated)
        return {};
    if (campo.DataType() == TipoCampo::ftString) {
        const qsizetype largo = valor.toString().size();
        if (campo.Size > 0 && largo > campo.Size)
            return valorDe(campo,
                           QStringLiteral(" no puede tener más de %1 caracteres").arg(campo.Size));
        return {};
    }
    if (const auto rango = rangoEntero(campo.DataType())) {
        const qlonglong n = valor.toLongLong();
        if (n < rango->first || n > rango->second)
            return valorDe(campo, QStringLiteral(" es incorrecto"));
    }
    if (campo.IsNumeric() && EsCampoPorcentaje(campo.FieldName())) {
        const double p = valor.toDouble();
        if (!(p >= 0.0 && p <= 100.0))
            return valorDe(campo, QStringLiteral(" debe estar entre 0 y 100"));
    }
    return {};
}

} // namespace co::forms
