// Writing through a table: inserts, edits, deletes, the order of the events,
// the silent abort, refused writes with the record kept, and two users on one
// row, on both back-ends.
#include "forms_fixture.h"

#include "core/failure_handler.h"

#include <gtest/gtest.h>

namespace co::forms::test {
namespace {

class TableWrites : public FormsTest {
protected:
    QString fila(int codigo) {
        return ok(QStringLiteral("SELECT Nombre, Importe FROM PRUOBRA WHERE CodigoObra = '%1'")
                      .arg(codigo));
    }
    Field &campo(Dataset &t, const char *name) { return t.FieldByName(QString::fromLatin1(name)); }
};

TEST_P(TableWrites, InsertEditAndDeleteReachTheDatabase) {
    obras(1, 3);
    auto t = abrir();
    t->Append();
    EXPECT_EQ(t->State(), DatasetState::Insert);
    campo(*t, "CodigoObra").SetAsString(QStringLiteral("7"));
    campo(*t, "Nombre").SetAsString(QStringLiteral("Nave d'Ocaña"));
    campo(*t, "Importe").SetAsString(QStringLiteral("1.234,5"));
    campo(*t, "FechaInicio").SetAsString(QStringLiteral("3/2/26"));
    t->Post();
    EXPECT_EQ(t->State(), DatasetState::Browse);
    EXPECT_EQ(fila(7), QStringLiteral("Nave d'Ocaña|1234,5"));
    EXPECT_EQ(campo(*t, "FechaInicio").AsString(), QStringLiteral("03/02/2026"));
    EXPECT_EQ(campo(*t, "Bloque").AsInteger(), 0) << "a field left null takes the column default";

    t->FindKey({2});
    t->Edit();
    campo(*t, "Importe").SetAsFloat(99.25);
    t->Post();
    EXPECT_EQ(fila(2), QStringLiteral("Obra 2|99,25"));

    t->Delete();
    EXPECT_EQ(fila(2), QString());
    EXPECT_EQ(codigo(*t), 3) << "after a delete the next record is current";
    t->Last();
    t->Delete();
    EXPECT_EQ(codigo(*t), 3) << "deleting the last record goes back one";
    EXPECT_EQ(t->RecordCount(), 2);
}

TEST_P(TableWrites, EventsRunInOrder) {
    obras(1, 2);
    auto t = abrir();
    QStringList log;
    for (const QString &e : Dataset::EventNames())
        if (e != u"OnDataChange")
            t->SetHandler(e, [&log, e](Dataset &ds) {
                log << (e == u"OnStateChange" ? e + u':' + NombreEstado(ds.State()) : e);
            });
    t->SetDataChangeHandler([&log](Dataset &, Field *f) {
        log << (f ? QStringLiteral("Change:") + f->FieldName() : QStringLiteral("DataChange"));
    });
    t->SetHandler(QStringLiteral("OnNewRecord"), [&log](Dataset &ds) {
        log << QStringLiteral("OnNewRecord");
        ds.FieldByName(QStringLiteral("Nombre")).SetAsString(QStringLiteral("Nueva"));
    });
    t->Append();
    EXPECT_EQ(log,
              (QStringList{"BeforeInsert", "BeforeScroll", "OnStateChange:dsInsert", "OnNewRecord",
                           "Change:Nombre", "DataChange", "AfterInsert", "AfterScroll"}));
    log.clear();
    campo(*t, "CodigoObra").SetAsInteger(5);
    t->Post();
    EXPECT_EQ(log, (QStringList{"Change:CodigoObra", "BeforePost", "OnStateChange:dsBrowse",
                                "DataChange", "AfterPost"}));
    log.clear();
    t->Edit();
    t->Cancel();
    EXPECT_EQ(log,
              (QStringList{"BeforeEdit", "OnStateChange:dsEdit", "DataChange", "AfterEdit",
                           "BeforeCancel", "OnStateChange:dsBrowse", "DataChange", "AfterCancel"}));
    log.clear();
    t->Delete();
    EXPECT_EQ(log, (QStringList{"BeforeDelete", "BeforeScroll", "DataChange", "AfterDelete",
                                "AfterScroll"}));
}

TEST_P(TableWrites, AbortInBeforePostLeavesTheRecordPendingAndUnwritten) {
    obras(1, 2);
    auto t = abrir();
    bool refuse = true;
    t->SetHandler(QStringLiteral("BeforePost"), [&refuse](Dataset &) {
        if (refuse)
            Abort();
    });
    int afterPost = 0;
    t->SetHandler(QStringLiteral("AfterPost"), [&afterPost](Dataset &) { ++afterPost; });
    t->Edit();
    campo(*t, "Nombre").SetAsString(QStringLiteral("Cambiada"));
    EXPECT_THROW(t->Post(), EAbort);
    EXPECT_EQ(t->State(), DatasetState::Edit);
    EXPECT_EQ(campo(*t, "Nombre").AsString(), QStringLiteral("Cambiada"));
    EXPECT_EQ(fila(1), QStringLiteral("Obra 1|1,5"));
    EXPECT_EQ(afterPost, 0);
    refuse = false;
    t->Post();
    EXPECT_EQ(fila(1), QStringLiteral("Cambiada|1,5"));
    EXPECT_EQ(afterPost, 1);
}

TEST_P(TableWrites, AbortInNewRecordDropsTheNewRecord) {
    obras(1, 2);
    auto t = abrir();
    t->Next();
    t->SetHandler(QStringLiteral("OnNewRecord"), [](Dataset &) { Abort(); });
    EXPECT_THROW(t->Insert(), EAbort);
    EXPECT_EQ(t->State(), DatasetState::Browse);
    EXPECT_EQ(codigo(*t), 2);
}

TEST_P(TableWrites, KeyViolationIsToldAndTheRecordKept) {
    obras(1, 3);
    auto t = abrir();
    t->Append();
    campo(*t, "CodigoObra").SetAsInteger(2);
    campo(*t, "Nombre").SetAsString(QStringLiteral("Repetida"));
    try {
        t->Post();
        FAIL() << "a repeated key must be refused";
    } catch (const EDatabaseError &e) {
        EXPECT_EQ(e.Mensaje(), QStringLiteral("¡ Ya existe el registro !"));
    }
    EXPECT_EQ(t->State(), DatasetState::Insert);
    EXPECT_EQ(campo(*t, "Nombre").AsString(), QStringLiteral("Repetida"));
    EXPECT_EQ(fila(2), QStringLiteral("Obra 2|3"));
    campo(*t, "CodigoObra").SetAsInteger(4);
    t->Post();
    EXPECT_EQ(fila(4), QStringLiteral("Repetida|0"));
}

TEST_P(TableWrites, MovingOffAnUntouchedNewRecordDropsIt) {
    obras(1, 3);
    auto t = abrir();
    t->SetHandler(QStringLiteral("OnNewRecord"), [](Dataset &ds) {
        ds.FieldByName(QStringLiteral("Nombre")).SetAsString(QStringLiteral("Por defecto"));
    });
    t->Append();
    t->First();
    EXPECT_EQ(t->State(), DatasetState::Browse);
    EXPECT_EQ(t->RecordCount(), 3);
    t->Edit();
    campo(*t, "Nombre").SetAsString(QStringLiteral("Tocada"));
    t->Next();
    EXPECT_EQ(fila(1), QStringLiteral("Tocada|1,5")) << "a modified record is posted when left";
}

TEST_P(TableWrites, RequiredKeyAndReadOnlyAreRefusedInTheSystemsWords) {
    obras(1, 1);
    auto t = abrir();
    t->Append();
    campo(*t, "Nombre").SetAsString(QStringLiteral("Sin clave"));
    try {
        t->Post();
        FAIL();
    } catch (const EDatabaseError &e) {
        EXPECT_TRUE(e.Mensaje().startsWith(
            QStringLiteral("¡ Debe introducir un valor en el campo 'CodigoObra'")))
            << e.Mensaje().toStdString();
    }
    t->Cancel();
    t->ReadOnly = true;
    for (auto op : {&Dataset::Edit, &Dataset::Append, &Dataset::Delete}) {
        try {
            (t.get()->*op)();
            FAIL();
        } catch (const EDatabaseError &e) {
            EXPECT_EQ(e.Mensaje(),
                      QStringLiteral("¡Ud. no tiene autorización para realizar modificaciones!"));
        }
        EXPECT_EQ(t->State(), DatasetState::Browse);
    }
    EXPECT_EQ(t->RecordCount(), 1);
}

TEST_P(TableWrites, WritingOutsideEditIsRefused) {
    obras(1, 1);
    auto t = abrir();
    try {
        campo(*t, "Nombre").SetAsString(QStringLiteral("x"));
        FAIL();
    } catch (const EDatabaseError &e) {
        EXPECT_EQ(e.Mensaje(), QStringLiteral("¡ Debe estar en modo edición !"));
    }
    t->Edit();
    EXPECT_THROW(campo(*t, "Importe").SetAsString(QStringLiteral("doce")), EDatabaseError);
    EXPECT_THROW(campo(*t, "FechaInicio").SetAsString(QStringLiteral("31/02/2026")),
                 EDatabaseError);
    EXPECT_EQ(campo(*t, "Importe").AsFloat(), 1.5)
        << "a value that does not convert leaves the old one";
    EXPECT_FALSE(t->Modified());
}

TEST_P(TableWrites, TwoUsersOnOneRowLoseNothing) {
    obras(1, 3);
    ScriptedMessages otrosMensajes;
    TfGENEINIC otraSesion(settings_, &otrosMensajes);
    ASSERT_TRUE(otraSesion.Conectar());
    TModuloDatos otrosDatos(otraSesion);
    otrosDatos.RegistrarNombres(
        {"CodigoObra", "Nombre", "Importe", "FechaInicio", "HoraInicio", "Bloque"});
    auto a = abrir();
    Table b(otrosDatos, QStringLiteral("Table1"), QStringLiteral("PRUOBRA"));
    b.Open();
    a->FindKey({2});
    b.FindKey({2});

    a->Edit();
    campo(*a, "Nombre").SetAsString(QStringLiteral("De A"));
    const QString bloqueado =
        QStringLiteral("¡ El registro esta siendo bloqueado por otro usuario !");
    bool bRefusedAtEdit = false;
    try {
        b.Edit();
        campo(b, "Nombre").SetAsString(QStringLiteral("De B"));
        b.Post();
    } catch (const EDatabaseError &e) {
        bRefusedAtEdit = true;
        EXPECT_EQ(e.Mensaje(), bloqueado);
        EXPECT_EQ(b.State(), DatasetState::Browse);
    }
    if (bRefusedAtEdit) {
        // Row locks: the first writer goes on; the second edits after it, from its values.
        a->Post();
        EXPECT_EQ(fila(2), QStringLiteral("De A|3"));
        b.Edit();
        EXPECT_EQ(campo(b, "Nombre").AsString(), QStringLiteral("De A"));
        campo(b, "Importe").SetAsFloat(4);
        b.Post();
        EXPECT_EQ(fila(2), QStringLiteral("De A|4"));
    } else {
        // Checked at post: B wrote first, so A is told and keeps its typing.
        EXPECT_EQ(fila(2), QStringLiteral("De B|3"));
        try {
            a->Post();
            FAIL() << "the second writer must be told";
        } catch (const EDatabaseError &e) {
            EXPECT_EQ(e.Mensaje(), bloqueado);
        }
        EXPECT_EQ(a->State(), DatasetState::Edit);
        EXPECT_EQ(campo(*a, "Nombre").AsString(), QStringLiteral("De A"));
        EXPECT_EQ(fila(2), QStringLiteral("De B|3"));
        a->Cancel();
        a->Edit();
        EXPECT_EQ(campo(*a, "Nombre").AsString(), QStringLiteral("De B"))
            << "a new edit starts from the row as it is";
        a->Cancel();
    }
    EXPECT_EQ(GetParam() == Backend::PostgreSQL, bRefusedAtEdit);
}

TEST_P(TableWrites, RowDeletedByAnotherUserIsToldOnEdit) {
    obras(1, 3);
    auto t = abrir();
    t->FindKey({2});
    ok(QStringLiteral("DELETE FROM PRUOBRA WHERE CodigoObra = '2'"));
    try {
        t->Edit();
        FAIL();
    } catch (const EDatabaseError &e) {
        EXPECT_EQ(e.Texto(), QStringLiteral("Record/Key deleted"));
    }
    EXPECT_EQ(t->State(), DatasetState::Browse);
    t->Refresh();
    EXPECT_EQ(t->RecordCount(), 2);
}

TEST_P(TableWrites, RowDeletedWhileEditedIsToldOnPostAndKeepsTheTyping) {
    obras(1, 3);
    auto t = abrir();
    t->FindKey({2});
    t->Edit();
    campo(*t, "Nombre").SetAsString(QStringLiteral("Tecleado"));
    // A statement of this same session: the row lock does not keep it off.
    ok(QStringLiteral("DELETE FROM PRUOBRA WHERE CodigoObra = '2'"));
    try {
        t->Post();
        FAIL() << "an update of no row passed as done";
    } catch (const EDatabaseError &e) {
        EXPECT_EQ(e.Texto(), QStringLiteral("Record/Key deleted"));
    }
    EXPECT_EQ(t->State(), DatasetState::Edit);
    EXPECT_EQ(campo(*t, "Nombre").AsString(), QStringLiteral("Tecleado"));
    t->Cancel();
}

TEST_P(TableWrites, EditOfAnEmptyTableInserts) {
    auto t = abrir();
    t->Edit();
    EXPECT_EQ(t->State(), DatasetState::Insert);
    campo(*t, "CodigoObra").SetAsInteger(1);
    t->Post();
    EXPECT_FALSE(t->IsEmpty());
    EXPECT_EQ(t->RecordCount(), 1);
}

CO_ON_BOTH_BACKENDS(TableWrites);

} // namespace
} // namespace co::forms::test
