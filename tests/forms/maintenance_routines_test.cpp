// The form model and the shared routines of the record screens, headless:
// handlers by name, focus, opening a form's tables, the close query, key
// lookups, the key check and the number and date checks, on both back-ends.
#include "core/table_creation.h"
#include "core/table_opening.h"
#include "forms/form.h"
#include "forms/maintenance_routines.h"
#include "forms/query_dataset.h"
#include "forms_fixture.h"

#include <gtest/gtest.h>

namespace co::forms::test {
namespace {

class MaintenanceRoutines : public FormsTest {
protected:
    void SetUp() override {
        FormsTest::SetUp();
        ok(QStringLiteral("CREATE TABLE PRUUNIDA (Codigo SMALLINT NOT NULL PRIMARY KEY, Nombre "
                          "VARCHAR(20) DEFAULT '')"));
        rutinas_ = std::make_unique<RutinasFormulario>(*datos_);
        form_ = std::make_unique<Form>(QStringLiteral("fPRUUNIDA"), QStringLiteral("Unidades"));
        table_ = &form_->Add<Table>(*datos_, QStringLiteral("Table1"), QStringLiteral("PRUUNIDA"));
        source_ = &form_->Add<DataSource>(QStringLiteral("DataSource1"), table_);
        clave_ = &form_->Add<DataControl>(ComponentKind::DBEdit, QStringLiteral("EditCodigo"),
                                          source_, QStringLiteral("Codigo"));
        nombre_ = &form_->Add<DataControl>(ComponentKind::DBEdit, QStringLiteral("EditNombre"),
                                           source_, QStringLiteral("Nombre"));
        conforme_ = &form_->AddControl(ComponentKind::Button, QStringLiteral("pbConforme"),
                                       QStringLiteral("&Conforme"));
        form_->SetEvent(*clave_, QStringLiteral("OnExit"), QStringLiteral("CampoClaveExit"));
        form_->SetHandler(QStringLiteral("CampoClaveExit"), [this](Component *) {
            rutinas_->ComprobarClave({*form_,
                                      *table_,
                                      table_->FieldByName(QStringLiteral("Codigo")),
                                      clave_,
                                      FamiliaFormulario::MaestroFicha,
                                      false,
                                      nullptr,
                                      {},
                                      {}});
        });
        table_->Open();
    }

    void alta(int codigo) {
        table_->Insert();
        form_->SetFocus(clave_);
        table_->FieldByName(QStringLiteral("Codigo")).SetAsInteger(codigo);
    }

    std::unique_ptr<RutinasFormulario> rutinas_;
    std::unique_ptr<Form> form_;
    Table *table_ = nullptr;
    DataSource *source_ = nullptr;
    DataControl *clave_ = nullptr;
    DataControl *nombre_ = nullptr;
    Component *conforme_ = nullptr;
};

TEST_P(MaintenanceRoutines, ComponentsAndHandlersAreFoundByNameInAnyCase) {
    EXPECT_EQ(form_->FindComponent(QStringLiteral("TABLE1")), table_);
    EXPECT_EQ(form_->Find<DataSource>(QStringLiteral("datasource1")), source_);
    EXPECT_EQ(form_->Find<Table>(QStringLiteral("DataSource1")), nullptr)
        << "found by name, checked by kind";
    EXPECT_EQ(table_->OwnerName(), QStringLiteral("fPRUUNIDA"));
    QStringList log;
    form_->SetHandler(QStringLiteral("Table1BeforePost"),
                      [&log](Component *sender) { log << sender->Name(); });
    form_->SetHandler(QStringLiteral("Table1NewRecord"), [this](Component *) {
        table_->FieldByName(QStringLiteral("Nombre")).SetAsString(QStringLiteral("Nueva"));
    });
    form_->SetHandler(QStringLiteral("pbConformeClick"), [this](Component *) { table_->Post(); });
    form_->ConectarEventos();
    EXPECT_TRUE(table_->HasHandler(QStringLiteral("BeforePost")));
    EXPECT_FALSE(table_->HasHandler(QStringLiteral("AfterPost")));
    table_->Insert();
    EXPECT_EQ(table_->FieldByName(QStringLiteral("Nombre")).AsString(), QStringLiteral("Nueva"));
    table_->FieldByName(QStringLiteral("Codigo")).SetAsInteger(3);
    EXPECT_TRUE(form_->Click(QStringLiteral("PBCONFORME")));
    EXPECT_EQ(log, QStringList{QStringLiteral("Table1")});
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre FROM PRUUNIDA WHERE Codigo = '3'")),
              QStringLiteral("Nueva"));
    conforme_->Enabled = false;
    EXPECT_FALSE(form_->Click(QStringLiteral("pbConforme"))) << "a disabled button does nothing";
    EXPECT_FALSE(form_->CallHandler(QStringLiteral("NoExiste")));
}

TEST_P(MaintenanceRoutines, FormTablesOpenThroughAbrirTablasForm) {
    Form f(QStringLiteral("fPRUEBA"));
    Table &t1 = f.Add<Table>(*datos_, QStringLiteral("Table1"), QStringLiteral("PRUOBRA"));
    Table &t2 = f.Add<Table>(*datos_, QStringLiteral("Table2"), QStringLiteral("RESPDOC"));
    int prepared = 0;
    f.Preparar = [&prepared] { ++prepared; };
    CreadorTablas creador(*datos_, co::test::kCarpetaDatos);
    AperturaTablas apertura(*datos_, creador);
    FormularioTablas tablas = f.Tablas();
    ASSERT_EQ(tablas.tablas.size(), 2);
    EXPECT_TRUE(apertura.AbrirTablasForm(tablas));
    EXPECT_EQ(prepared, 1);
    EXPECT_TRUE(t1.Active());
    EXPECT_TRUE(t2.Active()) << "a missing table is made from the structure file and opened";
    EXPECT_EQ(t2.DatabaseName(), QStringLiteral("Database"));
    EXPECT_EQ(t2.PrimaryKey(),
              (QStringList{QStringLiteral("NombreTabla"), QStringLiteral("ClaveTabla")}));
    EXPECT_FALSE(f.Closed());
}

TEST_P(MaintenanceRoutines, LeavingAnEmptyKeyDropsTheNewRecordSilently) {
    table_->Insert();
    form_->SetFocus(clave_);
    EXPECT_FALSE(form_->SetFocus(nombre_));
    EXPECT_EQ(table_->State(), DatasetState::Browse);
    EXPECT_TRUE(messages_.shown().isEmpty());
}

TEST_P(MaintenanceRoutines, SmallintKeyMustBeBetween1And9999) {
    for (int bad : {0, 10000}) {
        alta(bad);
        EXPECT_FALSE(form_->SetFocus(nombre_)) << bad;
        EXPECT_EQ(form_->ActiveControl(), clave_);
        EXPECT_EQ(messages_.texts(),
                  QStringList{QStringLiteral("¡ El valor debe estar entre 1 y 9999 !")});
        EXPECT_EQ(table_->State(), DatasetState::Insert) << "the record stays pending";
        messages_.clear();
        table_->Cancel();
    }
    alta(9999);
    EXPECT_TRUE(form_->SetFocus(nombre_));
    EXPECT_TRUE(messages_.shown().isEmpty());
}

TEST_P(MaintenanceRoutines, IntegerKeyRangeAndDuplicateKeyOnLeavingIt) {
    obras(5, 5);
    Form f(QStringLiteral("fPRUOBRA"));
    Table &t = f.Add<Table>(*datos_, QStringLiteral("Table1"), QStringLiteral("PRUOBRA"));
    auto &codigoEdit = f.AddControl(ComponentKind::DBEdit, QStringLiteral("EditCodigo"));
    auto &otro = f.AddControl(ComponentKind::DBEdit, QStringLiteral("EditNombre"));
    f.SetEvent(codigoEdit, QStringLiteral("OnExit"), QStringLiteral("CampoClaveExit"));
    f.SetHandler(QStringLiteral("CampoClaveExit"), [&](Component *) {
        rutinas_->ComprobarClave({f,
                                  t,
                                  t.FieldByName(QStringLiteral("CodigoObra")),
                                  &codigoEdit,
                                  FamiliaFormulario::MaestroFicha,
                                  false,
                                  nullptr,
                                  {},
                                  {}});
    });
    t.Open();
    t.Insert();
    f.SetFocus(&codigoEdit);
    t.FieldByName(QStringLiteral("CodigoObra")).SetAsInteger(100000000);
    EXPECT_FALSE(f.SetFocus(&otro));
    t.FieldByName(QStringLiteral("CodigoObra")).SetAsInteger(5);
    EXPECT_FALSE(f.SetFocus(&otro));
    EXPECT_EQ(f.ActiveControl(), &codigoEdit);
    EXPECT_EQ(messages_.texts(),
              (QStringList{QStringLiteral("¡ El valor debe estar entre 1 y 99999999 !"),
                           QStringLiteral("¡ Ya existe el registro !")}));
    t.FieldByName(QStringLiteral("CodigoObra")).SetAsInteger(99999999);
    EXPECT_TRUE(f.SetFocus(&otro));
    t.Post();
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM PRUOBRA")), QStringLiteral("2"));
}

TEST_P(MaintenanceRoutines, GridMasterLeavingTheKeyForConformePosts) {
    int grabaciones = 0;
    alta(12);
    rutinas_->ComprobarClave({*form_,
                              *table_,
                              table_->FieldByName(QStringLiteral("Codigo")),
                              clave_,
                              FamiliaFormulario::MaestroRejilla,
                              false,
                              conforme_,
                              {},
                              [&] {
                                  ++grabaciones;
                                  table_->Post();
                              }});
    EXPECT_EQ(grabaciones, 1);
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo FROM PRUUNIDA")), QStringLiteral("12"));
}

TEST_P(MaintenanceRoutines, FormValidatorFalseStopsTheKeyCheck) {
    alta(7);
    Component *visto = nullptr;
    EXPECT_THROW(rutinas_->ComprobarClave({*form_,
                                           *table_,
                                           table_->FieldByName(QStringLiteral("Codigo")),
                                           clave_,
                                           FamiliaFormulario::MaestroFicha,
                                           false,
                                           nombre_,
                                           [&](Component *sender) {
                                               visto = sender;
                                               return false;
                                           },
                                           {}}),
                 EAbort);
    EXPECT_EQ(visto, nombre_);
}

TEST_P(MaintenanceRoutines, ExisteClaveOnTablesAndQueries) {
    lineas(2, 3);
    Table t(*datos_, QStringLiteral("Table2"), QStringLiteral("PRULINEA"));
    t.Open();
    EXPECT_TRUE(rutinas_->ExisteClave(t, QStringLiteral("2;3;")));
    EXPECT_FALSE(rutinas_->ExisteClave(t, QStringLiteral("2;4;")));
    EXPECT_FALSE(rutinas_->ExisteClave(t, QStringLiteral("2;x' OR '1'='1;")))
        << "a quote cannot change the statement";
    EXPECT_TRUE(rutinas_->ExisteClaveTabla(QStringLiteral("PRULINEA"), QStringLiteral("2;1")));
    Query q(*datos_);
    q.SQL = QStringLiteral("SELECT * FROM PRULINEA WHERE Linea = '2'");
    q.Open();
    EXPECT_EQ(rutinas_->TextoClave(q), QStringLiteral("2;2;"));
    EXPECT_TRUE(rutinas_->ExisteClave(q, rutinas_->TextoClave(q)));
}

TEST_P(MaintenanceRoutines, CloseQueryAsksAndCancelsOrPosts) {
    const QString pregunta = QStringLiteral(
        "Hay registros de Unidades (Table1, )  cuya grabación no ha sido confirmada. "
        "¿Desea cancelar la grabación?");
    // "NO" with an empty first field: cancelled without a word more.
    table_->Insert();
    table_->FieldByName(QStringLiteral("Nombre")).SetAsString(QStringLiteral("Sin código"));
    messages_.answer(QStringLiteral("NO"));
    rutinas_->ConfirmarCierreForm(*form_);
    EXPECT_EQ(messages_.texts(), QStringList{pregunta});
    EXPECT_EQ(table_->State(), DatasetState::Browse);
    EXPECT_TRUE(form_->CanClose);
    // "NO" with a first field: posted.
    messages_.clear();
    alta(4);
    messages_.answer(QStringLiteral("NO"));
    rutinas_->ConfirmarCierreForm(*form_);
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo FROM PRUUNIDA")), QStringLiteral("4"));
    // "SI": cancelled even with data.
    alta(5);
    messages_.answer(QStringLiteral("SI"));
    rutinas_->ConfirmarCierreForm(*form_);
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM PRUUNIDA")), QStringLiteral("1"));
    // A refused post keeps the form open and tells why.
    messages_.clear();
    alta(4);
    messages_.answer(QStringLiteral("NO"));
    form_->SetHandler(QStringLiteral("FormCloseQuery"),
                      [this](Component *) { rutinas_->ConfirmarCierreForm(*form_); });
    EXPECT_FALSE(form_->Close());
    EXPECT_EQ(messages_.texts(),
              (QStringList{pregunta, QStringLiteral("¡ Ya existe el registro !")}));
    EXPECT_EQ(table_->State(), DatasetState::Insert);
    // Nothing pending: no question.
    table_->Cancel();
    messages_.clear();
    EXPECT_TRUE(form_->Close());
    EXPECT_TRUE(messages_.shown().isEmpty());
}

TEST_P(MaintenanceRoutines, BeforeDeleteAbortsWhenAssociatedDataStays) {
    alta(8);
    table_->Post();
    int borrados = 0;
    rutinas_->EliminarDatosAsociados = [&](Table &) { return ++borrados > 1; };
    table_->SetHandler(QStringLiteral("BeforeDelete"),
                       [this](Dataset &ds) { rutinas_->AntesEliminarRegistro(ds); });
    EXPECT_THROW(table_->Delete(), EAbort);
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM PRUUNIDA")), QStringLiteral("1"));
    table_->Delete();
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM PRUUNIDA")), QStringLiteral("0"));
}

TEST_P(MaintenanceRoutines, AfterPostOpensTheViewersThatApply) {
    CreadorTablas creador(*datos_, co::test::kCarpetaDatos);
    datos_->setTableCreator(&creador);
    int visor = 0, responsabilidad = 0;
    rutinas_->VisorCamposUsuario = [&](Dataset &) { ++visor; };
    rutinas_->ResponsabilidadDocumental = [&](Dataset &) { ++responsabilidad; };
    rutinas_->ResponsabilidadDocumentalActivada = true;
    table_->SetHandler(QStringLiteral("AfterPost"),
                       [this](Dataset &ds) { rutinas_->DespuesGrabarRegistro(ds); });
    alta(1);
    table_->Post();
    EXPECT_EQ(visor, 0) << "SolicitarCamposUsuario is NO";
    EXPECT_EQ(responsabilidad, 1) << "no row in RESPDOC yet";
    ok(QStringLiteral("INSERT INTO RESPDOC (NombreTabla, ClaveTabla) VALUES ('PRUUNIDA', '2')"));
    rutinas_->SolicitarCamposUsuario = QStringLiteral("SI");
    alta(2);
    table_->Post();
    EXPECT_EQ(visor, 1);
    EXPECT_EQ(responsabilidad, 1) << "the short key form is found";
}

TEST_P(MaintenanceRoutines, NumberAndDateChecks) {
    EXPECT_TRUE(rutinas_->ComprobarNumero(QStringLiteral(" 12 "), QStringLiteral("Cantidad")));
    EXPECT_FALSE(rutinas_->ComprobarNumero(QStringLiteral("1,5"), QStringLiteral("Cantidad")));
    EXPECT_FALSE(rutinas_->ComprobarNumero(QStringLiteral("doce"), QString()));
    EXPECT_TRUE(rutinas_->ComprobarFecha(QStringLiteral("2/1/1890"), QStringLiteral("Inicio")));
    EXPECT_FALSE(rutinas_->ComprobarFecha(QStringLiteral("1/1/1890"), QStringLiteral("Inicio")));
    EXPECT_FALSE(rutinas_->ComprobarFecha(QStringLiteral("30/2/2026"), QString()));
    EXPECT_EQ(messages_.texts(),
              (QStringList{QStringLiteral("¡El valor de Cantidad es incorrecto! Repita por favor"),
                           QStringLiteral("¡La fecha de Inicio es incorrecta! Repita por favor")}));
}

TEST_P(MaintenanceRoutines, UserActionsShowRefusalsAndSwallowTheAbort) {
    EXPECT_FALSE(rutinas_->Ejecutar([] { Abort(); }));
    EXPECT_TRUE(messages_.shown().isEmpty());
    EXPECT_FALSE(rutinas_->Ejecutar([this] { table_->Delete(); }));
    EXPECT_EQ(messages_.texts(),
              QStringList{QStringLiteral(
                  "¡ Es imposible realizar esta operación !. La Tabla está vacía.")});
    EXPECT_TRUE(rutinas_->Ejecutar([] {}));
}

CO_ON_BOTH_BACKENDS(MaintenanceRoutines);

} // namespace
} // namespace co::forms::test
