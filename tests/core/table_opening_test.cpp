// Opening table objects: bound to the database of their table, made from the
// structure file when missing, other failures told and noted for rebuild.
#include "core/ini_file.h"
#include "core/table_opening.h"

#include "support/layer_fixture.h"
#include "support/schema_check.h"

#include <QFile>
#include <gtest/gtest.h>

namespace co {
namespace {

// A table object that opens with a plain SELECT, as a dataset would.
class FakeTable : public TablaAbrible {
public:
    FakeTable(TModuloDatos &datos, QString table, QString connection = {})
        : datos_(datos), table_(std::move(table)), connection_(std::move(connection)) {}
    QString TableName() const override { return table_; }
    QString ComponentName() const override { return QStringLiteral("Table1"); }
    QString OwnerName() const override { return QStringLiteral("fPRUEBA"); }
    QString DatabaseName() const override { return connection_; }
    void SetDatabaseName(const QString &c) override { connection_ = c; }
    bool Active() const override { return active_; }
    void Close() override { active_ = false; }
    bool Open(QString *fallo) override {
        ++opens;
        if (!injected.isEmpty()) {
            *fallo = injected;
            return false;
        }
        const QString r =
            datos_.EjecutarSQL(QStringLiteral("SELECT * FROM %1 WHERE 1 = 0").arg(table_),
                               connection_, QStringLiteral("Silenciosa,No Crear Tabla"));
        active_ = !r.startsWith(QStringLiteral("Error."));
        if (!active_)
            *fallo = r.section(QStringLiteral("Motivo: "), 1);
        return active_;
    }
    QString injected;
    int opens = 0;

private:
    TModuloDatos &datos_;
    QString table_;
    QString connection_;
    bool active_ = false;
};

class TableOpening : public test::TablesOnDemandTest {
protected:
    void SetUp() override {
        TablesOnDemandTest::SetUp();
        if (!HasFatalFailure())
            apertura_ = std::make_unique<AperturaTablas>(*datos_, *creador_);
    }
    void TearDown() override {
        apertura_.reset();
        TablesOnDemandTest::TearDown();
    }
    std::unique_ptr<AperturaTablas> apertura_;
};

TEST_P(TableOpening, MissingTablesAreMadeAndOpenedOnTheirDatabase) {
    FakeTable obra(*datos_, QStringLiteral("OBRA"));
    EXPECT_TRUE(apertura_->AperturaTablaOK(obra));
    EXPECT_EQ(obra.DatabaseName(), QStringLiteral("Database"));
    EXPECT_EQ(datos_->ClavePrimaria(QStringLiteral("OBRA")), QStringLiteral("Codigo"));
    FakeTable usuario(*datos_, QStringLiteral("MONEDA"), QStringLiteral("DatabaseGeneral"));
    EXPECT_TRUE(apertura_->AperturaTablaOK(usuario));
    EXPECT_EQ(usuario.DatabaseName(), QStringLiteral("Database"));
    FakeTable idioma(*datos_, QStringLiteral("IDIOMA"));
    EXPECT_TRUE(apertura_->AperturaTablaOK(idioma));
    EXPECT_EQ(idioma.DatabaseName(), QStringLiteral("DatabaseGeneral"));
    // Open already: nothing is done.
    const int opens = obra.opens;
    EXPECT_TRUE(apertura_->AperturaTablaOK(obra));
    EXPECT_EQ(obra.opens, opens);
}

TEST_P(TableOpening, OtherFailuresAreToldAndNotedForRebuild) {
    sesion_->ArchivoINI = dir_.filePath(QStringLiteral("NAROWIN.INI"));
    FakeTable dañada(*datos_, QStringLiteral("PARTEOB"));
    dañada.injected = QStringLiteral("Corrupt table. database disk image is malformed");
    EXPECT_FALSE(apertura_->AperturaTablaOK(dañada));
    ASSERT_EQ(messages_.shown().size(), 1);
    EXPECT_EQ(messages_.shown()[0].text,
              QStringLiteral("Corrupt table. database disk image is malformed Tabla: "
                             "PARTEOB(Table1) DataBase: Database"));
    FakeTable otra(*datos_, QStringLiteral("OBRA"));
    otra.injected = QStringLiteral("Index is out of date");
    apertura_->AperturaTablaOK(otra);
    apertura_->AperturaTablaOK(dañada);
    const std::optional<QString> noted =
        IniFile::load(sesion_->ArchivoINI)
            .value(QStringLiteral("Reconstrucción Automática de Tablas"), QStringLiteral("Tablas"));
    if (backend() == Backend::SQLite) {
        ASSERT_TRUE(noted.has_value());
        EXPECT_EQ(*noted, sesion_->PathBaseDatos + QStringLiteral("\\OBRA,") +
                              sesion_->PathBaseDatos + QStringLiteral("\\PARTEOB"));
    } else {
        EXPECT_FALSE(noted.has_value());
    }
}

TEST_P(TableOpening, AFormOpensAllItsTablesOrCloses) {
    FakeTable t1(*datos_, QStringLiteral("OBRA")), t2(*datos_, QStringLiteral("PARAGENE")),
        t3(*datos_, QStringLiteral("CAPITULO"));
    bool translated = false, closed = false, prepared = false;
    FormularioTablas form{QStringLiteral("fOBRAOBRA"),
                          {&t1, &t2, &t3},
                          true,
                          [&] { prepared = true; },
                          [&] { closed = true; },
                          [&] { translated = true; },
                          {}};
    EXPECT_TRUE(apertura_->AbrirTablasForm(form));
    EXPECT_TRUE(prepared && translated && !closed);
    EXPECT_TRUE(t1.Active() && t3.Active());
    // No company selected: PARAGENE is left alone.
    EXPECT_FALSE(t2.Active());

    FakeTable bad(*datos_, QStringLiteral("PARTIDA"));
    bad.injected = QStringLiteral("Table is busy");
    FakeTable after(*datos_, QStringLiteral("UNIDADOB"));
    translated = false;
    FormularioTablas broken{QStringLiteral("fOBRAOBRA"),
                            {&bad, &after},
                            true,
                            {},
                            [&] { closed = true; },
                            [&] { translated = true; },
                            {}};
    EXPECT_FALSE(apertura_->AbrirTablasForm(broken));
    EXPECT_TRUE(closed);
    EXPECT_FALSE(translated);
    EXPECT_FALSE(after.Active());
}

TEST_P(TableOpening, AnExistingTableGetsBackTheIndexesItLacksWhenOpened) {
    FakeTable maquinas(*datos_, QStringLiteral("PARMAQOB"));
    ASSERT_TRUE(apertura_->AperturaTablaOK(maquinas));
    const QStringList indices = test::IndicesDeTabla(*datos_, {}, QStringLiteral("PARMAQOB"));
    ASSERT_EQ(indices.size(), 3);
    datos_->EjecutarSQL(QStringLiteral("DROP INDEX PARMAQOB_Clave3"));
    datos_->EjecutarSQL(QStringLiteral("DROP INDEX PARMAQOB_Clave4"));
    ASSERT_EQ(test::IndicesDeTabla(*datos_, {}, QStringLiteral("PARMAQOB")).size(), 1);
    // A later run of the program opens it.
    apertura_.reset();
    ASSERT_NO_FATAL_FAILURE(reconnect());
    apertura_ = std::make_unique<AperturaTablas>(*datos_, *creador_);
    FakeTable otraVez(*datos_, QStringLiteral("PARMAQOB"));
    EXPECT_TRUE(apertura_->AperturaTablaOK(otraVez));
    EXPECT_EQ(test::IndicesDeTabla(*datos_, {}, QStringLiteral("PARMAQOB")), indices);
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

CO_ON_BOTH_BACKENDS(TableOpening);

} // namespace
} // namespace co
