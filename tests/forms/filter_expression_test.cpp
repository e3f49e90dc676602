// The filter text evaluator over one row: operators, types, wildcards,
// precedence and malformed texts.
#include "forms/dataset_errors.h"
#include "forms/filter_expression.h"
#include "support/gtest_qt_printing.h"

#include <QDateTime>
#include <QHash>
#include <gtest/gtest.h>

namespace co::forms {
namespace {

class FilterRow : public ::testing::Test {
protected:
    QHash<QString, FilterOperand> row{
        {QStringLiteral("nombre"), {TipoCampo::ftString, QStringLiteral("Obra de Ávila"), false}},
        {QStringLiteral("cliente"), {TipoCampo::ftString, QStringLiteral("O'Brien"), false}},
        {QStringLiteral("importe"), {TipoCampo::ftFloat, 1234.5, false}},
        {QStringLiteral("codigo"), {TipoCampo::ftInteger, 42LL, false}},
        {QStringLiteral("fecha"),
         {TipoCampo::ftDateTime, QDateTime(QDate(2026, 3, 5), QTime(0, 0)), false}},
        {QStringLiteral("horainicio"),
         {TipoCampo::ftDateTime, QDateTime(QDate(1899, 12, 30), QTime(8, 30)), true}},
        {QStringLiteral("vacio"), {TipoCampo::ftFloat, QVariant(), false}},
        {QStringLiteral("notas"), {TipoCampo::ftString, QVariant(), false}},
    };
    bool eval(const QString &text) {
        const FilterLookup lookup = [this](const QString &n) -> std::optional<FilterOperand> {
            const auto it = row.constFind(n.toLower());
            if (it == row.cend())
                return std::nullopt;
            return *it;
        };
        const FilterExpression e = FilterExpression::Parse(text);
        e.Validate(lookup);
        return e.Evaluate(lookup);
    }
    QString failure(const QString &text) {
        try {
            eval(text);
        } catch (const EDatabaseError &e) {
            return e.Texto();
        }
        return {};
    }
};

TEST_F(FilterRow, QuotedValuesCompareInTheFieldsType) {
    EXPECT_TRUE(eval(QStringLiteral("(Importe > '999')"))) << "numerically, not as text";
    EXPECT_TRUE(eval(QStringLiteral("(Importe = '1.234,5')")));
    EXPECT_TRUE(eval(QStringLiteral("(Importe = '1234.5')")));
    EXPECT_TRUE(eval(QStringLiteral("(Codigo >= '42')")));
    EXPECT_FALSE(eval(QStringLiteral("(Codigo < '42')")));
    EXPECT_TRUE(eval(QStringLiteral("(Codigo <> 41)")));
    EXPECT_TRUE(eval(QStringLiteral("(Fecha = '05/03/2026')")));
    EXPECT_TRUE(eval(QStringLiteral("(Fecha > '4/3/26')")));
    EXPECT_FALSE(eval(QStringLiteral("(Fecha <= '04/03/2026')")));
    EXPECT_TRUE(eval(QStringLiteral("(HoraInicio >= '8:30')")));
    EXPECT_FALSE(eval(QStringLiteral("(HoraInicio > '08:30:00')")));
    EXPECT_TRUE(eval(QStringLiteral("('1000' < Importe)"))) << "a value on the left is mirrored";
}

TEST_F(FilterRow, TrailingStarIsAStartOfTextWildcard) {
    EXPECT_TRUE(eval(QStringLiteral("(Nombre = 'Obra*')")));
    EXPECT_FALSE(eval(QStringLiteral("(Nombre = 'obra*')"))) << "case counts";
    EXPECT_FALSE(eval(QStringLiteral("(Nombre <> 'Obra de*')")));
    EXPECT_TRUE(eval(QStringLiteral("(Nombre = '*')")));
    EXPECT_FALSE(eval(QStringLiteral("(Nombre = 'Obra')"))) << "without the star the text is whole";
}

TEST_F(FilterRow, LinesJoinedByAndOrWithPrecedenceAndParentheses) {
    EXPECT_TRUE(eval(QStringLiteral("(Codigo = '42') AND\r\n(Importe > '1000')")));
    EXPECT_FALSE(eval(QStringLiteral("(Codigo = '42') AND\n(Importe > '2000')")));
    EXPECT_TRUE(eval(QStringLiteral("(Codigo = '1') OR (Codigo = '42') AND (Importe > '1000')")));
    EXPECT_FALSE(
        eval(QStringLiteral("((Codigo = '1') OR (Codigo = '42')) and (Importe > '2000')")));
    EXPECT_TRUE(eval(QStringLiteral("NOT (Codigo = '1')")));
    EXPECT_TRUE(eval(QStringLiteral("Codigo = 42")));
    EXPECT_TRUE(eval(QStringLiteral("   ")));
}

TEST_F(FilterRow, AQuoteInsideAValueIsTakenAsTyped) {
    EXPECT_TRUE(eval(QStringLiteral("(Cliente = 'O'Brien')")));
    EXPECT_TRUE(eval(QStringLiteral("(Cliente = 'O'B*') AND (Codigo = '42')")));
}

TEST_F(FilterRow, NullValues) {
    EXPECT_FALSE(eval(QStringLiteral("(Vacio = '0')")));
    EXPECT_FALSE(eval(QStringLiteral("(Vacio < '1')")));
    EXPECT_TRUE(eval(QStringLiteral("(Vacio <> '0')")));
    EXPECT_TRUE(eval(QStringLiteral("(Notas = '')"))) << "a null text is an empty text";
    EXPECT_TRUE(eval(QStringLiteral("Vacio IS NULL AND Notas is null")));
    EXPECT_TRUE(eval(QStringLiteral("Importe IS NOT NULL")));
}

TEST_F(FilterRow, BadTextsAreRefusedWithTheirReason) {
    EXPECT_EQ(failure(QStringLiteral("(Nada = '1')")), QStringLiteral("Field 'Nada' not found"));
    EXPECT_EQ(failure(QStringLiteral("(Importe > 'mucho')")),
              QStringLiteral("'mucho' is not a valid floating point value"));
    EXPECT_EQ(failure(QStringLiteral("(Fecha = '31/02/2026')")),
              QStringLiteral("'31/02/2026' is not a valid date"));
    EXPECT_EQ(failure(QStringLiteral("(HoraInicio = '25:00')")),
              QStringLiteral("'25:00' is not a valid time"));
    for (const char *bad :
         {"(Codigo = '1'", "Codigo = '1')", "(Codigo '1')", "(Codigo = )", "(Nombre = 'abc)",
          "(Codigo = '1') AND", "(Codigo = '1') OR OR (Codigo = '2')", "(Codigo ! '1')"}) {
        EXPECT_TRUE(failure(QString::fromUtf8(bad))
                        .startsWith(QStringLiteral("Filter expression incorrectly formed")))
            << bad;
    }
}

TEST_F(FilterRow, ChecksEveryBranchNotOnlyTheOneEvaluated) {
    EXPECT_EQ(failure(QStringLiteral("(Codigo = '42') OR (Importe = 'x')")),
              QStringLiteral("'x' is not a valid floating point value"));
    EXPECT_EQ(
        FilterExpression::Parse(QStringLiteral("(Codigo = '1') AND (nombre = 'a' OR [Codigo] > 3)"))
            .FieldNames(),
        (QStringList{QStringLiteral("Codigo"), QStringLiteral("nombre")}));
}

} // namespace
} // namespace co::forms
