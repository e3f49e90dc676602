#pragma once
// `Field`: one field of a dataset's current record. It reads and writes the
// dataset's record buffer, so a value set here is the record's pending value.
//
// Values are held typed by the field's type word: text as QString, small and
// whole numbers as qlonglong, floats as double, dates as QDateTime (the null
// date 30/12/1899 is a date-time of 0), booleans as bool. Null is an invalid
// QVariant; an empty text stored into any field makes it null.
//
// An hour field is a date-time field whose name contains "Hora" (any case): its
// text is "hh:mm:ss" and it accepts hours typed as "h:m[:s]".
//
// Writing outside Edit, Insert or SetKey raises "Dataset not in edit or insert
// mode"; writing a read-only field raises "Field '<name>' cannot be modified";
// a text that does not convert raises the failure handler's conversion texts
// ("'x' is not a valid integer value", "... floating point value", "... date",
// "... time"). The record keeps its former value in every case.

#include "core/backend.h"
#include "core/field_types.h"

#include <QDateTime>
#include <QString>
#include <QVariant>

namespace co::forms {

class Dataset;

class Field {
public:
    Field(Dataset &dataset, int index, QString name, TipoCampo type);

    const QString &FieldName() const { return name_; }
    TipoCampo DataType() const { return type_; }
    // "ftString", "ftInteger", ... as the framework's lists keep them.
    QString TypeName() const { return TipoCampoANombre(type_); }
    ColumnKind Kind() const;
    int Index() const { return index_; }
    Dataset &DataSet() const { return dataset_; }

    bool IsHourField() const;
    bool IsNumeric() const;
    bool IsFloat() const;
    bool IsDateTime() const;

    QVariant Value() const;
    void SetValue(const QVariant &value);
    bool IsNull() const { return Value().isNull(); }
    void Clear() { SetValue(QVariant()); }

    QString AsString() const;
    void SetAsString(const QString &text);
    qlonglong AsInteger() const;
    void SetAsInteger(qlonglong value) { SetValue(value); }
    double AsFloat() const;
    void SetAsFloat(double value) { SetValue(value); }
    QDateTime AsDateTime() const;
    void SetAsDateTime(const QDateTime &value) { SetValue(value); }
    bool AsBoolean() const;

    // The text shown in browse: floats through DisplayFormat, the null date as
    // an empty text, hour fields as "hh:mm:ss".
    QString DisplayText() const;
    // The same for this field in `record`, a record of the dataset as
    // `Dataset::CurrentRecord` gives it.
    QString DisplayTextOf(const QVariantList &record) const;
    // AsString of a value of this field.
    QString TextOf(const QVariant &value) const;

    // The value converted to this field's type; throws EDatabaseError as above.
    QVariant Converted(const QVariant &value) const;

    // Properties as the screens set them.
    int Size = 0;
    bool Required = false;
    bool ReadOnly = false;
    bool Visible = true;
    bool Calculated = false;
    int Tag = 0;
    QString DisplayFormat;
    QString EditMask;
    QString DisplayLabel;
    Qt::Alignment Alignment = Qt::AlignLeft;

private:
    QString displayText(const QVariant &value, const QVariantList &record) const;

    Dataset &dataset_;
    int index_;
    QString name_;
    TipoCampo type_;
    bool hourField_;
};

// The field type word of a column kind, for columns with no declared type.
TipoCampo TipoDeColumna(ColumnKind kind);
// The column kind of a type word.
ColumnKind ClaseDeTipo(TipoCampo type);

} // namespace co::forms
