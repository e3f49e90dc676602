#include "forms/field.h"

#include "core/date_utils.h"
#include "core/failure.h"
#include "core/number_format.h"
#include "core/number_text.h"
#include "core/result_text.h"
#include "forms/dataset.h"
#include "forms/dataset_errors.h"

#include <QRegularExpression>

namespace co::forms {
namespace {

const QDate kZeroDate(1899, 12, 30);

[[noreturn]] void notValid(const QString &text, const char *what) {
    throw EDatabaseError(QStringLiteral("'%1' is not a valid %2").arg(text, QLatin1String(what)));
}

QDateTime parseHour(const QString &text) {
    static const QRegularExpression re(
        QStringLiteral("^\\s*(\\d{1,2})(?::(\\d{1,2}))?(?::(\\d{1,2}))?\\s*$"));
    const auto m = re.match(text);
    if (!m.hasMatch())
        notValid(text, "time");
    const QTime t(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    if (!t.isValid())
        notValid(text, "time");
    return QDateTime(kZeroDate, t);
}

} // namespace

TipoCampo TipoDeColumna(ColumnKind kind) {
    switch (kind) {
    case ColumnKind::Text:
        return TipoCampo::ftString;
    case ColumnKind::Memo:
        return TipoCampo::ftMemo;
    case ColumnKind::Integer:
        return TipoCampo::ftInteger;
    case ColumnKind::Float:
        return TipoCampo::ftFloat;
    case ColumnKind::DateTime:
        return TipoCampo::ftDateTime;
    case ColumnKind::Boolean:
        return TipoCampo::ftBoolean;
    case ColumnKind::Blob:
        return TipoCampo::ftBlob;
    case ColumnKind::Unknown:
        break;
    }
    return TipoCampo::ftString;
}

ColumnKind ClaseDeTipo(TipoCampo type) {
    switch (type) {
    case TipoCampo::ftString:
        return ColumnKind::Text;
    case TipoCampo::ftMemo:
    case TipoCampo::ftFmtMemo:
        return ColumnKind::Memo;
    case TipoCampo::ftSmallint:
    case TipoCampo::ftInteger:
    case TipoCampo::ftWord:
    case TipoCampo::ftAutoInc:
        return ColumnKind::Integer;
    case TipoCampo::ftFloat:
    case TipoCampo::ftCurrency:
    case TipoCampo::ftBCD:
        return ColumnKind::Float;
    case TipoCampo::ftDate:
    case TipoCampo::ftTime:
    case TipoCampo::ftDateTime:
        return ColumnKind::DateTime;
    case TipoCampo::ftBoolean:
        return ColumnKind::Boolean;
    case TipoCampo::ftBlob:
    case TipoCampo::ftGraphic:
    case TipoCampo::ftBytes:
    case TipoCampo::ftVarBytes:
    case TipoCampo::ftTypedBinary:
    case TipoCampo::ftParadoxOle:
    case TipoCampo::ftDBaseOle:
        return ColumnKind::Blob;
    case TipoCampo::ftUnknown:
        break;
    }
    return ColumnKind::Unknown;
}

Field::Field(Dataset &dataset, int index, QString name, TipoCampo type)
    : dataset_(dataset), index_(index), name_(std::move(name)), type_(type),
      hourField_(IsDateTime() && name_.contains(QStringLiteral("Hora"), Qt::CaseInsensitive)) {
    if (IsNumeric())
        Alignment = Qt::AlignRight;
}

ColumnKind Field::Kind() const {
    return ClaseDeTipo(type_);
}

bool Field::IsHourField() const {
    return hourField_;
}
bool Field::IsNumeric() const {
    return Kind() == ColumnKind::Integer || Kind() == ColumnKind::Float;
}
bool Field::IsFloat() const {
    return Kind() == ColumnKind::Float;
}
bool Field::IsDateTime() const {
    return Kind() == ColumnKind::DateTime;
}

QVariant Field::Value() const {
    return dataset_.fieldValue(index_);
}

void Field::SetValue(const QVariant &value) {
    dataset_.setFieldValue(index_, Converted(value));
}

QVariant Field::Converted(const QVariant &value) const {
    if (!value.isValid() || value.isNull())
        return {};
    if (value.typeId() == QMetaType::QString) {
        const QString text = value.toString();
        if (text.isEmpty())
            return {};
        switch (Kind()) {
        case ColumnKind::Integer: {
            bool ok = false;
            const qlonglong n = text.trimmed().toLongLong(&ok);
            if (!ok)
                notValid(text, "integer value");
            return n;
        }
        case ColumnKind::Float: {
            // Without a comma a point is the decimal sign, as the keypad types it.
            const std::optional<double> d = LeerDecimal(text);
            if (!d)
                notValid(text, "floating point value");
            return *d;
        }
        case ColumnKind::DateTime:
            if (IsHourField())
                return parseHour(text);
            try {
                return TextoAFecha(text);
            } catch (const Failure &f) {
                throw EDatabaseError(f.text());
            }
        case ColumnKind::Boolean: {
            const QString t = text.trimmed().toUpper();
            if (t == u"TRUE" || t == u"SI" || t == u"1" || t == u"T")
                return true;
            if (t == u"FALSE" || t == u"NO" || t == u"0" || t == u"F")
                return false;
            notValid(text, "value");
        }
        default:
            break;
        }
        // A text beyond the width stays as typed; the post tells (field_limits.h).
        return text;
    }
    switch (Kind()) {
    case ColumnKind::Integer:
        if (value.typeId() == QMetaType::Double)
            return static_cast<qlonglong>(value.toDouble());
        return value.toLongLong();
    case ColumnKind::Float:
        return value.toDouble();
    case ColumnKind::DateTime:
        if (value.typeId() == QMetaType::QDate)
            return QDateTime(value.toDate(), QTime(0, 0));
        if (value.typeId() == QMetaType::QTime)
            return QDateTime(kZeroDate, value.toTime());
        return ValorTipado(value, ColumnKind::DateTime);
    case ColumnKind::Boolean:
        return value.toBool();
    case ColumnKind::Text:
    case ColumnKind::Memo:
        return value.toString();
    default:
        return value;
    }
}

QString Field::AsString() const {
    return TextOf(Value());
}

QString Field::TextOf(const QVariant &v) const {
    if (v.isNull())
        return {};
    if (IsHourField())
        return v.toDateTime().time().toString(QStringLiteral("hh:mm:ss"));
    return TextoValor(v, Kind());
}

void Field::SetAsString(const QString &text) {
    SetValue(text);
}

qlonglong Field::AsInteger() const {
    const QVariant v = Value();
    if (v.isNull())
        return 0;
    if (v.typeId() == QMetaType::QString) {
        bool ok = false;
        const qlonglong n = v.toString().trimmed().toLongLong(&ok);
        if (!ok)
            notValid(v.toString(), "integer value");
        return n;
    }
    return v.toLongLong();
}

double Field::AsFloat() const {
    const QVariant v = Value();
    if (v.isNull())
        return 0.0;
    if (v.typeId() == QMetaType::QString) {
        const std::optional<double> d = LeerDecimal(v.toString());
        if (!d)
            notValid(v.toString(), "floating point value");
        return *d;
    }
    return v.toDouble();
}

QDateTime Field::AsDateTime() const {
    const QVariant v = Value();
    if (v.isNull())
        return QDateTime(kZeroDate, QTime(0, 0));
    if (v.typeId() == QMetaType::QString) {
        try {
            return TextoAFecha(v.toString());
        } catch (const Failure &f) {
            throw EDatabaseError(f.text());
        }
    }
    return ValorTipado(v, ColumnKind::DateTime).toDateTime();
}

bool Field::AsBoolean() const {
    return Value().toBool();
}

QString Field::DisplayText() const {
    return displayText(Value(), dataset_.CurrentRecord());
}

QString Field::DisplayTextOf(const QVariantList &record) const {
    return displayText(record.value(index_), record);
}

QString Field::displayText(const QVariant &v, const QVariantList &record) const {
    if (v.isNull())
        return {};
    if (IsFloat() && Tag >= 1000 && dataset_.TextoMoneda)
        return dataset_.TextoMoneda(*this, v.toDouble(), record);
    if (IsFloat() && !DisplayFormat.isEmpty())
        return FormatFloat(DisplayFormat, v.toDouble());
    if (IsDateTime() && !IsHourField() && v.toDateTime() == QDateTime(kZeroDate, QTime(0, 0)))
        return {};
    return TextOf(v);
}

} // namespace co::forms
