// Password hashes: salted argon2id strings, clear text kept by older
// installations, the cost knob and awkward passwords.
#include "core/password_hash.h"

#include "support/gtest_qt_printing.h"

#include <QStringList>
#include <gtest/gtest.h>
#include <sodium.h>

namespace co {
namespace {

class PasswordHash : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(setPasswordHashCost({1, 8192})); }
    void TearDown() override { setPasswordHashCost(interactivePasswordHashCost()); }
};

TEST_F(PasswordHash, HashVerifiesOnlyTheSamePassword) {
    const QStringList passwords = {QStringLiteral("secreto"),
                                   QStringLiteral("Contraseña con eñe y acentos áéíóú"),
                                   QStringLiteral("' OR '1'='1"),
                                   QStringLiteral("x'; DROP TABLE USUARIO; --"),
                                   QStringLiteral("a|b=c·d\\e\r\nf"),
                                   QString(QChar(0)) + QStringLiteral("tras-nulo"),
                                   QString(300, u'z')};
    for (const QString &p : passwords) {
        const QString h = hashPassword(p);
        ASSERT_TRUE(isPasswordHash(h)) << h.toStdString();
        EXPECT_TRUE(verifyPassword(h, p)) << p.toStdString();
        EXPECT_FALSE(verifyPassword(h, p + u' ')) << p.toStdString();
        EXPECT_FALSE(verifyPassword(h, p.left(p.size() - 1))) << p.toStdString();
        EXPECT_FALSE(verifyPassword(h, {})) << p.toStdString();
        EXPECT_FALSE(h.contains(p)) << p.toStdString();
    }
    // A NUL character is part of the password, not its end.
    const QString withNul = QString(QChar(0)) + QStringLiteral("tras-nulo");
    EXPECT_FALSE(verifyPassword(hashPassword(withNul), QString(QChar(0))));
}

TEST_F(PasswordHash, EachHashHasItsOwnSalt) {
    const QString a = hashPassword(QStringLiteral("igual"));
    const QString b = hashPassword(QStringLiteral("igual"));
    EXPECT_NE(a, b);
    EXPECT_TRUE(verifyPassword(a, QStringLiteral("igual")));
    EXPECT_TRUE(verifyPassword(b, QStringLiteral("igual")));
}

TEST_F(PasswordHash, ClearTextIsComparedExactly) {
    EXPECT_FALSE(isPasswordHash(QStringLiteral("secreto")));
    EXPECT_TRUE(verifyPassword(QStringLiteral("secreto"), QStringLiteral("secreto")));
    EXPECT_FALSE(verifyPassword(QStringLiteral("secreto"), QStringLiteral("SECRETO")));
    EXPECT_FALSE(verifyPassword(QStringLiteral("secreto"), QStringLiteral("secreto ")));
    EXPECT_FALSE(verifyPassword(QStringLiteral("secreto"), QStringLiteral("secret")));
    EXPECT_TRUE(verifyPassword(QStringLiteral("año"), QStringLiteral("año")));
    EXPECT_FALSE(verifyPassword(QStringLiteral("año"), QStringLiteral("ano")));
}

TEST_F(PasswordHash, BrokenHashNeverVerifies) {
    const QString h = hashPassword(QStringLiteral("clave"));
    EXPECT_FALSE(verifyPassword(h.left(h.size() - 4), QStringLiteral("clave")));
    // The text of a hash typed as the password is not the password.
    EXPECT_FALSE(verifyPassword(h, h));
    EXPECT_FALSE(
        verifyPassword(QStringLiteral("$argon2id$basura"), QStringLiteral("$argon2id$basura")));
    EXPECT_FALSE(verifyPassword(h + QString(200, u'x'), QStringLiteral("clave")));
}

TEST_F(PasswordHash, UpgradeWantedForClearTextAndForAnotherCost) {
    EXPECT_TRUE(passwordNeedsUpgrade(QStringLiteral("en claro")));
    const QString cheap = hashPassword(QStringLiteral("clave"));
    EXPECT_FALSE(passwordNeedsUpgrade(cheap));
    ASSERT_TRUE(setPasswordHashCost({2, 16384}));
    EXPECT_TRUE(passwordNeedsUpgrade(cheap));
    EXPECT_TRUE(verifyPassword(cheap, QStringLiteral("clave")));
    EXPECT_FALSE(passwordNeedsUpgrade(hashPassword(QStringLiteral("clave"))));
}

TEST_F(PasswordHash, CostCannotGoBelowTheLibraryMinimum) {
    const PasswordHashCost before = passwordHashCost();
    EXPECT_FALSE(setPasswordHashCost({0, 8192}));
    EXPECT_FALSE(setPasswordHashCost({1, 1024}));
    EXPECT_EQ(passwordHashCost().operations, before.operations);
    EXPECT_EQ(passwordHashCost().memoryBytes, before.memoryBytes);
}

TEST(PasswordHashDefaults, ProductionCostIsInteractiveAndFitsTheColumn) {
    // No test before this one may leave a weaker cost behind.
    EXPECT_EQ(passwordHashCost().operations, interactivePasswordHashCost().operations);
    EXPECT_EQ(passwordHashCost().memoryBytes, interactivePasswordHashCost().memoryBytes);
    EXPECT_GE(interactivePasswordHashCost().operations,
              static_cast<unsigned long long>(crypto_pwhash_OPSLIMIT_INTERACTIVE));
    EXPECT_GE(interactivePasswordHashCost().memoryBytes,
              static_cast<std::size_t>(crypto_pwhash_MEMLIMIT_INTERACTIVE));
    const QString h = hashPassword(QStringLiteral("clave de producción"));
    ASSERT_TRUE(h.startsWith(QStringLiteral("$argon2id$"))) << h.toStdString();
    // `ClaveAcceso` holds 128 characters.
    EXPECT_LE(h.size(), 128);
    EXPECT_TRUE(verifyPassword(h, QStringLiteral("clave de producción")));
    EXPECT_FALSE(passwordNeedsUpgrade(h));
}

} // namespace
} // namespace co
