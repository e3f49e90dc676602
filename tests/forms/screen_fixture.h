#pragma once
// A small grid master declared as the record screens declare themselves:
// `INCIDENC` (smallint key) made from the structure files, `Table1`,
// `DataSource1`, `DBGrid1`, the menu item `Agregar`, the key check on leaving
// the key column and duplication on new records. A second form holds data edits
// on `PRUOBRA` (an hour field and an amount) and a grid on `PRULINEA`.

#include "core/user_fixture.h"
#include "forms/form.h"
#include "forms/key_map.h"
#include "forms/maintenance_routines.h"
#include "forms/record_copy.h"
#include "forms/table.h"

#include <gtest/gtest.h>
#include <memory>

namespace co::forms::test {

class ScreenTest : public co::test::UserTest {
protected:
    void SetUp() override {
        UserTest::SetUp();
        if (HasFatalFailure())
            return;
        ok(QStringLiteral(
            "CREATE TABLE PRUOBRA (CodigoObra INTEGER NOT NULL, Nombre VARCHAR(40) DEFAULT '', "
            "Importe DOUBLE PRECISION DEFAULT 0, HoraInicio TIMESTAMP, "
            "CONSTRAINT PRUOBRA_Clave1 PRIMARY KEY (CodigoObra))"));
        ok(QStringLiteral(
            "CREATE TABLE PRULINEA (CodigoObra INTEGER NOT NULL, Linea INTEGER NOT NULL, "
            "Texto VARCHAR(40) DEFAULT '', CONSTRAINT PRULINEA_Clave1 PRIMARY KEY (CodigoObra, "
            "Linea))"));
        for (const char *t : {"INCIDENC", "TEXTO"}) {
            QString motivo;
            creador_->CrearTabla(QString::fromLatin1(t), QStringLiteral("Database"), {}, &motivo);
            ASSERT_TRUE(motivo.isEmpty()) << motivo.toStdString();
        }
        rutinas_ = std::make_unique<RutinasFormulario>(*datos_);
        declararMaestro();
    }

    void TearDown() override {
        form_.reset();
        rutinas_.reset();
        UserTest::TearDown();
    }

    void declararMaestro() {
        form_ = std::make_unique<Form>(QStringLiteral("fPRUINCI"), QStringLiteral("Incidencias"));
        table_ = &form_->Add<Table>(*datos_, QStringLiteral("Table1"), QStringLiteral("INCIDENC"));
        source_ = &form_->Add<DataSource>(QStringLiteral("DataSource1"), table_);
        grid_ = &form_->Add<DBGrid>(QStringLiteral("DBGrid1"), source_);
        agregar_ = &form_->AddControl(ComponentKind::MenuItem, QStringLiteral("Agregar"),
                                      QStringLiteral("&Agregar"));
        form_->SetEvent(*grid_, QStringLiteral("OnColExit"), QStringLiteral("DBGrid1ColExit"));
        form_->SetHandler(QStringLiteral("DBGrid1ColExit"), [this](Component *sender) {
            if (grid_->SelectedIndex != 0)
                return;
            rutinas_->ComprobarClave({*form_,
                                      *table_,
                                      table_->FieldByName(QStringLiteral("Codigo")),
                                      grid_,
                                      FamiliaFormulario::MaestroRejilla,
                                      false,
                                      sender,
                                      {},
                                      {}});
        });
        form_->SetHandler(QStringLiteral("Table1BeforeInsert"),
                          [this](Component *) { claveAnterior_ = rutinas_->TextoClave(*table_); });
        form_->SetHandler(QStringLiteral("Table1NewRecord"), [this](Component *) {
            if (agregar_->Caption == u"&Agregar con Duplicación")
                DuplicarRegistro(*table_, claveAnterior_);
        });
        form_->ConectarEventos();
        table_->Open();
        grid_->DefaultColumns();
        form_->SetFocus(grid_);
    }

    void incidencia(int codigo, const QString &descripcion,
                    const QString &imputable = QStringLiteral("SI")) {
        ok(QStringLiteral("INSERT INTO INCIDENC (Codigo, Descripcion, Imputable, Tipo) VALUES "
                          "('%1', '%2', '%3', 'Parada')")
               .arg(codigo)
               .arg(descripcion, imputable));
    }

    bool pulsar(int key, Qt::KeyboardModifiers mods = Qt::NoModifier) {
        return ProcesarTeclaForm(*form_, *rutinas_, Tecla{key, mods});
    }
    bool pulsarEn(Form &form, int key, Qt::KeyboardModifiers mods = Qt::NoModifier) {
        return ProcesarTeclaForm(form, *rutinas_, Tecla{key, mods});
    }

    // The rows of a statement's result, one text per row.
    QStringList consulta(const QString &sql) {
        return ok(sql).remove(u'\r').split(u'\n', Qt::SkipEmptyParts);
    }

    qlonglong filas(const QString &tabla) {
        return ok(QStringLiteral("SELECT COUNT(*) FROM ") + tabla).trimmed().toLongLong();
    }

    std::unique_ptr<RutinasFormulario> rutinas_;
    std::unique_ptr<Form> form_;
    Table *table_ = nullptr;
    DataSource *source_ = nullptr;
    DBGrid *grid_ = nullptr;
    Component *agregar_ = nullptr;
    QString claveAnterior_;
};

} // namespace co::forms::test
