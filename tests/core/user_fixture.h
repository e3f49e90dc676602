#pragma once
// A fresh installation whose tables are made on first use, with a cheap
// password-hash cost, and helpers to put users in `USUARIO`.

#include "core/password_hash.h"
#include "core/user_table.h"
#include "support/layer_fixture.h"

#include <gtest/gtest.h>

namespace co::test {

// libsodium's minimum cost: hashing stays a matter of microseconds in tests.
inline constexpr PasswordHashCost kFastHashCost{1, 8192};

// The user most tests work with.
inline const QString kAna = QStringLiteral("ana");

class UserTest : public TablesOnDemandTest {
protected:
    void SetUp() override {
        TablesOnDemandTest::SetUp();
        if (HasFatalFailure())
            return;
        ASSERT_TRUE(setPasswordHashCost(kFastHashCost));
    }

    void TearDown() override {
        setPasswordHashCost(interactivePasswordHashCost());
        TablesOnDemandTest::TearDown();
    }

    // Inserts a user whose `ClaveAcceso` holds `clave` exactly as given.
    void addUser(const QString &codigo, const QString &categoria = QStringLiteral("Normal"),
                 const QString &clave = {}, const QString &configuracion = {}) {
        UserRecord r;
        r.Codigo = codigo;
        r.Nombre = QStringLiteral("Nombre de ") + codigo;
        r.Categoria = categoria;
        r.ClaveAcceso = clave;
        r.Configuracion = configuracion;
        QString motivo;
        ASSERT_TRUE(insertUser(*datos_, r, &motivo)) << motivo.toStdString();
    }

    void setField(const QString &codigo, const QString &campo, const QString &valor) {
        QString motivo;
        ASSERT_TRUE(updateUserField(*datos_, codigo, campo, valor, &motivo))
            << motivo.toStdString();
    }

    UserRecord user(const QString &codigo) {
        const std::optional<UserRecord> r = findUser(*datos_, codigo);
        EXPECT_TRUE(r.has_value()) << codigo.toStdString();
        return r.value_or(UserRecord{});
    }
};

} // namespace co::test
