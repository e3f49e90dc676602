// The routines a record screen gets from its preparation and its menu:
// read-only access from the user's rights, the close query, hidden controls,
// deleting all active records and the data attached to a record, on both
// back-ends.
#include "forms/form_preparation.h"
#include "forms/multiple_delete.h"
#include "screen_fixture.h"

namespace co::forms::test {
namespace {

const QString kAviso1 = QStringLiteral(
    "¡Esta opción elimina todos los registros activos de la tabla!. Puede utilizar previamente "
    "la opción Filtrar Registros del Menú Ficha para limitar los registros");
const QString kAviso2 = QStringLiteral(
    "¿Está Vd. realmente seguro de querer eliminar todos los registros activos de la tabla?");

class RecordRoutines : public ScreenTest {
protected:
    void usuario(const QString &soloLectura, const QString &ocultos = {}) {
        addUser(QStringLiteral("ana"), QStringLiteral("Normal"), {},
                ocultos.isEmpty() ? QString() : QStringLiteral("ControlesNoVisibles=") + ocultos);
        if (!soloLectura.isEmpty())
            setField(QStringLiteral("ana"), QStringLiteral("ProgramasSoloLectura"), soloLectura);
        sesion_->CodigoUsuario = QStringLiteral("ana");
    }
};

TEST_P(RecordRoutines, ReadOnlyAccessRefusesPostsInTheSystemsWords) {
    usuario(QStringLiteral("Incidencias"));
    OpcionesPreparacion o;
    o.derechosActivos = true;
    PrepararForm(*form_, *rutinas_, o);
    EXPECT_TRUE(table_->ReadOnly);
    const bool hecho = rutinas_->Ejecutar([&] {
        table_->Append();
        table_->FieldByName(QStringLiteral("Codigo")).SetAsInteger(1);
        table_->Post();
    });
    EXPECT_FALSE(hecho);
    EXPECT_EQ(messages_.texts(), QStringList{QStringLiteral(
                                     "¡Ud. no tiene autorización para realizar modificaciones!")});
    EXPECT_EQ(filas(QStringLiteral("INCIDENC")), 0);
}

TEST_P(RecordRoutines, FullAccessWritesAndRightsOffIgnoresTheList) {
    usuario(QStringLiteral("Otro Programa"));
    OpcionesPreparacion o;
    o.derechosActivos = true;
    PrepararForm(*form_, *rutinas_, o);
    EXPECT_FALSE(table_->ReadOnly);
    declararMaestro();
    setField(QStringLiteral("ana"), QStringLiteral("ProgramasSoloLectura"),
             QStringLiteral("Incidencias"));
    PrepararForm(*form_, *rutinas_, OpcionesPreparacion{});
    EXPECT_FALSE(table_->ReadOnly) << "rights not in use";
    table_->Append();
    table_->FieldByName(QStringLiteral("Codigo")).SetAsInteger(2);
    table_->Post();
    EXPECT_EQ(filas(QStringLiteral("INCIDENC")), 1);
}

TEST_P(RecordRoutines, CloseQueryFromPreparationCancelsAnEmptyRecordOnNo) {
    PrepararForm(*form_, *rutinas_, OpcionesPreparacion{});
    table_->Append();
    messages_.answer(QStringLiteral("NO"));
    EXPECT_TRUE(form_->Close());
    EXPECT_EQ(messages_.texts(),
              QStringList{QStringLiteral("Hay registros de Incidencias (Table1, )  cuya grabación "
                                         "no ha sido confirmada. ¿Desea cancelar la grabación?")});
    EXPECT_EQ(table_->State(), DatasetState::Browse);
    EXPECT_EQ(filas(QStringLiteral("INCIDENC")), 0);
}

TEST_P(RecordRoutines, PreparationKeepsTheFormsOwnHandlersAndHidesListedControls) {
    usuario({}, QStringLiteral("TfPRUINCI.pbEliminar,TfPRUINCI.DBGrid1.Table1.Tipo"));
    Component &eliminar = form_->AddControl(ComponentKind::Button, QStringLiteral("pbEliminar"));
    Component &previa =
        form_->AddControl(ComponentKind::CheckBox, QStringLiteral("VisualizacionPrevia"));
    bool propio = false;
    table_->SetHandler(QStringLiteral("AfterPost"), [&propio](Dataset &) { propio = true; });
    OpcionesPreparacion o;
    o.modoControlesNoVisibles = true;
    o.visualizacionPrevia = true;
    PrepararForm(*form_, *rutinas_, o);
    EXPECT_FALSE(eliminar.Visible);
    EXPECT_TRUE(grid_->Visible);
    EXPECT_TRUE(previa.Checked);
    for (const GridColumn &c : grid_->Columns)
        EXPECT_EQ(c.Visible, c.FieldName != u"Tipo") << c.FieldName.toStdString();
    EXPECT_TRUE(table_->HasHandler(QStringLiteral("BeforeDelete")));
    table_->Append();
    table_->FieldByName(QStringLiteral("Codigo")).SetAsInteger(3);
    table_->Post();
    EXPECT_TRUE(propio) << "the form's own after-post stays";
}

TEST_P(RecordRoutines, MultipleDeleteAsksTwiceAndDeletesTheActiveRecordsOnly) {
    for (int i = 1; i <= 5; ++i)
        incidencia(i, QStringLiteral("I%1").arg(i),
                   i % 2 ? QStringLiteral("SI") : QStringLiteral("NO"));
    table_->Refresh();
    messages_.answer(QStringLiteral("SI"));
    messages_.answer(QStringLiteral("NO"));
    EliminacionMultiple(*table_, sesion_->mensajes());
    EXPECT_EQ(messages_.texts(), (QStringList{kAviso1, kAviso2}));
    EXPECT_EQ(filas(QStringLiteral("INCIDENC")), 5);

    table_->SetFilter(QStringLiteral("Imputable = 'SI'"));
    table_->SetFiltered(true);
    messages_.clear();
    messages_.answer(QStringLiteral("SI"));
    messages_.answer(QStringLiteral("SI"));
    EliminacionMultiple(*table_, sesion_->mensajes());
    EXPECT_EQ(messages_.texts(), (QStringList{kAviso1, kAviso2})) << "the last delete ends quietly";
    EXPECT_EQ(consulta(QStringLiteral("SELECT Codigo FROM INCIDENC ORDER BY Codigo")),
              (QStringList{QStringLiteral("2"), QStringLiteral("4")}));
}

TEST_P(RecordRoutines, MultipleDeleteStopsAtARefusedDelete) {
    for (int i = 1; i <= 3; ++i)
        incidencia(i, QStringLiteral("I%1").arg(i));
    table_->Refresh();
    table_->SetHandler(QStringLiteral("BeforeDelete"), [](Dataset &d) {
        if (d.FieldByName(QStringLiteral("Codigo")).AsInteger() == 2)
            Abort();
    });
    messages_.answer(QStringLiteral("SI"));
    messages_.answer(QStringLiteral("SI"));
    EliminacionMultiple(*table_, sesion_->mensajes());
    EXPECT_EQ(messages_.texts().value(2), QStringLiteral("¡Imposible eliminar el registro!"));
    EXPECT_EQ(consulta(QStringLiteral("SELECT Codigo FROM INCIDENC ORDER BY Codigo")),
              (QStringList{QStringLiteral("2"), QStringLiteral("3")}));
}

TEST_P(RecordRoutines, AssociatedDataOfTheRecordGoesAndOthersStay) {
    for (const char *t : {"RESPDOC", "DOCUTRON", "BLOBTAB", "GRANTAB", "CONTACTO", "RELACION"}) {
        QString motivo;
        creador_->CrearTabla(QString::fromLatin1(t), QStringLiteral("Database"), {}, &motivo);
        ASSERT_TRUE(motivo.isEmpty()) << t << motivo.toStdString();
    }
    incidencia(4, QStringLiteral("Granizo"));
    table_->Refresh();
    table_->First();
    for (const char *clave : {"4", "5"}) {
        const QString k = QString::fromLatin1(clave);
        ok(QStringLiteral(
               "INSERT INTO RESPDOC (NombreTabla, ClaveTabla) VALUES ('INCIDENC', '%1|')")
               .arg(k));
        ok(QStringLiteral("INSERT INTO DOCUTRON (NombreTabla, ClaveTabla, Nombre) VALUES "
                          "('INCIDENC', '%1', 'd')")
               .arg(k));
        ok(QStringLiteral("INSERT INTO BLOBTAB (NombreTabla, ClaveTabla, IdObjeto) VALUES "
                          "('INCIDENC', '%1', 'b')")
               .arg(k));
        ok(QStringLiteral("INSERT INTO GRANTAB (NombreTabla, ClaveTabla, GrupoAnalisis) VALUES "
                          "('INCIDENC', '%1', 'g')")
               .arg(k));
        ok(QStringLiteral("INSERT INTO CONTACTO (NombreTabla, CodigoTabla, CodigoContacto) VALUES "
                          "('INCIDENC', '%1', 'c')")
               .arg(k));
        ok(QStringLiteral("INSERT INTO RELACION (NombreTablaA, ClaveTablaA, NombreTablaB, "
                          "ClaveTablaB) VALUES ('OBRA', 'x', 'INCIDENC', '%1')")
               .arg(k));
    }
    EXPECT_TRUE(EliminarDatosAsociados(*datos_, *table_));
    for (const char *t : {"RESPDOC", "DOCUTRON", "BLOBTAB", "GRANTAB", "CONTACTO", "RELACION"})
        EXPECT_EQ(filas(QString::fromLatin1(t)), 1) << t;
    EXPECT_TRUE(messages_.texts().isEmpty());
}

TEST_P(RecordRoutines, AFailedRemovalIsWarnedTheRestRunAndTheDeleteIsStopped) {
    for (const char *t : {"RESPDOC", "DOCUTRON", "BLOBTAB", "CONTACTO", "RELACION"}) {
        QString motivo;
        creador_->CrearTabla(QString::fromLatin1(t), QStringLiteral("Database"), {}, &motivo);
    }
    PrepararForm(*form_, *rutinas_, OpcionesPreparacion{});
    datos_->setTableCreator(nullptr); // GRANTAB stays missing
    incidencia(4, QStringLiteral("Granizo"));
    table_->Refresh();
    ok(QStringLiteral("INSERT INTO RELACION (NombreTablaA, ClaveTablaA, NombreTablaB, ClaveTablaB) "
                      "VALUES ('INCIDENC', '4', 'OBRA', 'x')"));
    table_->First();
    EXPECT_FALSE(rutinas_->Ejecutar([&] { table_->Delete(); }));
    EXPECT_EQ(filas(QStringLiteral("INCIDENC")), 1) << "the record stays";
    EXPECT_EQ(filas(QStringLiteral("RELACION")), 0) << "the statements after the failure ran";
    ASSERT_EQ(messages_.texts().size(), 1);
    EXPECT_TRUE(messages_.texts().first().startsWith(QStringLiteral(
        "¡El registro de G.A. de Tablas asociado no ha sido eliminado! Motivo: Error.")))
        << messages_.texts().first().toStdString();
}

TEST_P(RecordRoutines, AttachmentWindowFollowsTheRecordAndPlainEditsSearchOnDoubleClick) {
    incidencia(1, QStringLiteral("A"));
    incidencia(2, QStringLiteral("B"));
    form_->AddControl(ComponentKind::MenuItem, QStringLiteral("DocumentacionElectronica1"));
    Component &edit = form_->AddControl(ComponentKind::Edit, QStringLiteral("EditObra"));
    QStringList log;
    form_->SetHandler(QStringLiteral("DocumentacionElectronica1Click"), [&](Component *) {
        log << QStringLiteral("doc:") + table_->FieldByName(QStringLiteral("Codigo")).AsString();
    });
    bool abierta = false;
    rutinas_->Ventanas.DocumentosAbiertos = [&abierta] { return abierta; };
    rutinas_->Ventanas.BusquedaAsociacion = [&log](Component &c) { log << c.Name(); };
    OpcionesPreparacion o;
    o.documentacionElectronica = true;
    PrepararForm(*form_, *rutinas_, o);
    table_->Refresh();
    table_->First();
    table_->Next();
    EXPECT_TRUE(log.isEmpty()) << "the window is closed";
    abierta = true;
    table_->Prior();
    EXPECT_TRUE(form_->RunEvent(edit, QStringLiteral("OnDblClick")));
    EXPECT_EQ(log, (QStringList{QStringLiteral("doc:1"), QStringLiteral("EditObra")}));
}

CO_ON_BOTH_BACKENDS(RecordRoutines);

} // namespace
} // namespace co::forms::test
