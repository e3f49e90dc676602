// Password scrambling of the INI file: the digits written, the key position
// that wraps after six characters, and the round trip of awkward passwords.
#include "core/password_scramble.h"

#include "support/layer_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

QString scrambled(const QString &text) {
    QString out;
    EXPECT_TRUE(CifrarClave(text, out));
    return out;
}

QString clear(const QString &digits) {
    QString out;
    DescifrarClave(digits, out);
    return out;
}

TEST(PasswordScramble, FirstCharacterUsesTheSecondKeyCharacterAndSeventhWrapsToIt) {
    // 'a' against the key "xaplim" from its second character: a^a, a^p, a^l, a^i,
    // a^m, a^x, then a^a again.
    EXPECT_EQ(scrambled(QStringLiteral("aaaaaaa")), QStringLiteral("000017013008012025000"));
    EXPECT_EQ(clear(QStringLiteral("000017013008012025000")), QStringLiteral("aaaaaaa"));
}

TEST(PasswordScramble, AccentsUseTheirWindowsByte) {
    // "ñ" is 0xF1 and "€" 0x80 in the Windows Western code page; both against 'a'.
    EXPECT_EQ(scrambled(QStringLiteral("ñ")), QStringLiteral("144"));
    EXPECT_EQ(scrambled(QStringLiteral("€")), QStringLiteral("225"));
}

TEST(PasswordScramble, RoundTripsKeepTheText) {
    const QStringList passwords = {QStringLiteral("clave"),
                                   QStringLiteral("Añoñé€ü"),
                                   QStringLiteral("xaplim"),
                                   QStringLiteral("a b'c\"d|e=f"),
                                   QStringLiteral("0123456789"),
                                   QStringLiteral("Œuvre…“”"),
                                   QString(200, u'z') + QStringLiteral("ÁÉÍÓÚ")};
    for (const QString &p : passwords) {
        const QString digits = scrambled(p);
        EXPECT_EQ(digits.size(), 3 * p.size()) << p.toStdString();
        EXPECT_TRUE(
            std::all_of(digits.cbegin(), digits.cend(), [](QChar c) { return c.isDigit(); }));
        QString back;
        EXPECT_TRUE(DescifrarClave(digits, back));
        EXPECT_EQ(back, p);
    }
}

TEST(PasswordScramble, EmptyPasswordGivesEmptyText) {
    EXPECT_EQ(scrambled(QString()), QString());
    QString back = QStringLiteral("x");
    EXPECT_TRUE(DescifrarClave(QString(), back));
    EXPECT_EQ(back, QString());
}

TEST(PasswordScramble, CharacterWithoutAWindowsByteIsRefused) {
    QString out = QStringLiteral("previo");
    EXPECT_FALSE(CifrarClave(QStringLiteral("abc中"), out));
    EXPECT_EQ(out, QString());
}

TEST(PasswordScramble, BadGroupsCountAsZero) {
    QString out;
    // A non-number group gives the key character itself: 0 ^ 'a', then 0 ^ 'p'.
    EXPECT_FALSE(DescifrarClave(QStringLiteral("a1b000"), out));
    EXPECT_EQ(out, QStringLiteral("ap"));
    // A short last group is ignored.
    EXPECT_FALSE(DescifrarClave(QStringLiteral("00001"), out));
    EXPECT_EQ(out, QStringLiteral("a"));
    EXPECT_FALSE(DescifrarClave(QStringLiteral("999"), out));
}

} // namespace
} // namespace co
