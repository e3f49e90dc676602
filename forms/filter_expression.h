#pragma once
// The filter text of the filter window, parsed once and evaluated over rows.
//
// Grammar (keywords in any case):
//   expr       := and ("OR" and)*
//   and        := unary ("AND" unary)*
//   unary      := "NOT" unary | "(" expr ")" | comparison
//   comparison := operand op operand | operand "IS" ["NOT"] "NULL"
//   operand    := field | [field name] | 'text' | number
//   op         := = <> < > <= >=
// A quoted text is compared converted to the type of the field it meets: numbers
// accept "," or "." as decimal sign, dates are "d/m/y[ h:m[:s]]" as typed in
// the session's format, hour fields "h:m[:s]". A text ending in "*" compared with
// "=" or "<>" is a start-of-text wildcard. Values are taken as typed: a quote
// inside a value is part of it unless it is followed by ")", an operator, the
// end, or AND/OR.
// A null text field compares as an empty text; a null number or date matches
// only "<>" and "IS NULL".
//
// Failures raise EDatabaseError: a malformed text "Filter expression incorrectly
// formed: <detail>", an unknown field "Field '<name>' not found", a value that
// does not convert the handler's conversion texts.

#include "core/field_types.h"

#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>
#include <optional>

namespace co::forms {

struct FilterOperand {
    TipoCampo type = TipoCampo::ftUnknown;
    QVariant value;
    bool hour = false; // an hour field
};

// Gives a field's type and current value by name, nullopt for an unknown field.
using FilterLookup = std::function<std::optional<FilterOperand>(const QString &name)>;

class FilterExpression {
public:
    FilterExpression();
    ~FilterExpression();
    FilterExpression(FilterExpression &&) noexcept;
    FilterExpression &operator=(FilterExpression &&) noexcept;

    // An empty or blank text gives an expression that accepts every row.
    static FilterExpression Parse(const QString &text);

    bool IsEmpty() const;
    // The field names the text refers to, as written.
    QStringList FieldNames() const;
    // Checks names and literal conversions against the fields, throwing as above.
    void Validate(const FilterLookup &lookup) const;
    bool Evaluate(const FilterLookup &lookup) const;

    struct Node;

private:
    std::unique_ptr<Node> root_;
};

} // namespace co::forms
