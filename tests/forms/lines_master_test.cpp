// The master-with-lines family and numbered documents headless, on both
// back-ends, over two test tables: headers keyed by Numero and their lines
// keyed by Numero and Linea.
#include "core/session.h"
#include "forms/key_map.h"
#include "forms/lines_master.h"
#include "support/layer_fixture.h"
#include "support/screen_test.h"

#include <gtest/gtest.h>

namespace co::forms {
namespace {

using co::test::ScreenTest;
using forms::DatasetState;

DeclaracionFicha cabecera() {
    return {QStringLiteral("fPRUELINE"),
            QStringLiteral("Documento de Prueba"),
            QStringLiteral("PRUCAB"),
            QStringLiteral("Numero"),
            {{QStringLiteral("Numero"), QStringLiteral("Número"), {}},
             {QStringLiteral("Descripcion"), QStringLiteral("Descripción"), {}}},
            false};
}

// Its lines' validator refuses the text "NO" and notes who asked.
class PantallaLineas : public MaestroConLineas {
public:
    explicit PantallaLineas(TModuloDatos &datos)
        : MaestroConLineas(datos, cabecera(),
                           {QStringLiteral("PRULINEA"),
                            QStringLiteral("Linea"),
                            {{QStringLiteral("Linea"), QStringLiteral("Línea")},
                             {QStringLiteral("Texto"), QStringLiteral("Texto")},
                             {QStringLiteral("Tipo"),
                              QStringLiteral("Tipo"),
                              {QStringLiteral("Material"), QStringLiteral("Trabajo")}}}}) {
        NumerarDocumento(QStringLiteral("Numero"));
    }
    QStringList validaciones; // the sender's name, "-" for none

protected:
    bool ValidacionLinea(forms::Component *sender) override {
        validaciones << (sender ? sender->Name() : QStringLiteral("-"));
        if (Table2().FieldByName(QStringLiteral("Texto")).AsString() != u"NO")
            return true;
        Mensajes().MensajeA(QStringLiteral("¡No existe la Partida!"));
        return false;
    }
};

class FichaDocumento : public MaestroFicha {
public:
    explicit FichaDocumento(TModuloDatos &datos) : MaestroFicha(datos, cabecera()) {
        NumerarDocumento(QStringLiteral("Numero"));
    }
};

const QString kNoGrabada = QStringLiteral("¡ La línea no ha sido grabada !");
const QString kNoPartida = QStringLiteral("¡No existe la Partida!");
const QString kNoValida =
    QStringLiteral("¡ No se puede grabar la línea porque está bloqueada por "
                   "otro usuario o porque el dato introducido no es válido !");
const QString kEliminarTodo =
    QStringLiteral("¿Está seguro de querer eliminar el registro y todas sus líneas?");

using Pantalla = ScreenTest<PantallaLineas>;

class LinesMaster : public test::TablesOnDemandTest {
protected:
    void SetUp() override {
        test::TablesOnDemandTest::SetUp();
        if (HasFatalFailure())
            return;
        ok(QStringLiteral(
            "CREATE TABLE PRUCAB (Numero INTEGER NOT NULL, Descripcion "
            "VARCHAR(40) DEFAULT '', CONSTRAINT PRUCAB_Clave1 PRIMARY KEY (Numero))"));
        // A line with the text "MAL" is refused by the database.
        ok(QStringLiteral("CREATE TABLE PRULINEA (Numero INTEGER NOT NULL, Linea INTEGER NOT NULL, "
                          "Texto VARCHAR(40) DEFAULT '' CHECK (Texto <> 'MAL'), "
                          "Tipo VARCHAR(20) DEFAULT '', "
                          "CONSTRAINT PRULINEA_Clave1 PRIMARY KEY (Numero, Linea))"));
        for (int n : {1, 2})
            ok(QStringLiteral("INSERT INTO PRUCAB (Numero, Descripcion) VALUES (%1, 'Doc %1')")
                   .arg(n));
    }
    void lineas(int numero, int cuantas) {
        for (int l = 1; l <= cuantas; ++l)
            ok(QStringLiteral("INSERT INTO PRULINEA (Numero, Linea, Texto) VALUES (%1, %2, 'L%2')")
                   .arg(numero)
                   .arg(l));
    }
    // Rows of a table, of those of one header when `numero` is given.
    QString filas(const QString &tabla, int numero = 0) {
        return ok(QStringLiteral("SELECT COUNT(*) FROM ") + tabla +
                  (numero ? QStringLiteral(" WHERE Numero = %1").arg(numero) : QString()))
            .trimmed();
    }
    QString texto(int numero, int linea) {
        return ok(QStringLiteral("SELECT Texto FROM PRULINEA WHERE Numero = %1 AND Linea = %2")
                      .arg(numero)
                      .arg(linea))
            .trimmed();
    }
    QString descripcion(int numero) {
        return ok(QStringLiteral("SELECT Descripcion FROM PRUCAB WHERE Numero = %1").arg(numero))
            .trimmed();
    }
    QString ultimoMensaje() const { return messages_.texts().value(messages_.texts().size() - 1); }
    // Opens the screen on the first header.
    static bool abrir(Pantalla &s) {
        if (!s.open())
            return false;
        s.form().Table1().First();
        return true;
    }
    static bool columna(Pantalla &s, const QString &campo) {
        return s.column(campo, QStringLiteral("DBGrid2"));
    }
    // A new line typed in the lines grid, left pending.
    static bool nuevaLinea(Pantalla &s, const QString &texto) {
        return s.focus(QStringLiteral("DBGrid2")) && s.form().Rutinas().Ejecutar([&] {
            s.form().Table2().Append();
            s.form().Table2().FieldByName(QStringLiteral("Texto")).SetAsString(texto);
        });
    }
    // Types into a field of the current line.
    static bool poner(Pantalla &s, const QString &campo, const QString &valor) {
        return s.form().Rutinas().Ejecutar(
            [&] { s.form().Table2().FieldByName(campo).SetAsString(valor); });
    }
    static QStringList lineasVistas(Pantalla &s) {
        QStringList out;
        forms::Table &t = s.form().Table2();
        for (t.First(); !t.Eof(); t.Next())
            out << t.FieldByName(QStringLiteral("Numero")).AsString() + u'/' +
                       t.FieldByName(QStringLiteral("Linea")).AsString();
        return out;
    }
    static bool ctrlSupr(Pantalla &s) {
        bool consumida = false;
        s.form().Rutinas().Ejecutar([&] {
            consumida = ProcesarTeclaForm(s.form(), s.form().Rutinas(),
                                          Tecla{Qt::Key_Delete, Qt::ControlModifier});
        });
        return consumida;
    }
};

TEST_P(LinesMaster, LinesNumberThemselvesWithinTheirHeader) {
    Pantalla s(*datos_);
    ASSERT_TRUE(abrir(s));
    for (const char *t : {"a", "b", "c"}) {
        ASSERT_TRUE(nuevaLinea(s, QString::fromLatin1(t)));
        ASSERT_TRUE(s.click(QStringLiteral("pbConforme")));
    }
    EXPECT_EQ(lineasVistas(s),
              (QStringList{QStringLiteral("1/1"), QStringLiteral("1/2"), QStringLiteral("1/3")}));
    s.form().Table1().Next();
    EXPECT_TRUE(lineasVistas(s).isEmpty()) << "the lines follow the header";
    ASSERT_TRUE(nuevaLinea(s, QStringLiteral("d")));
    ASSERT_TRUE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(lineasVistas(s), QStringList{QStringLiteral("2/1")});
    EXPECT_EQ(filas(QStringLiteral("PRULINEA"), 1), QStringLiteral("3"));
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'|').toStdString();
}

TEST_P(LinesMaster, CtrlDeleteInTheLinesAsksBeforeDeletingALine) {
    lineas(1, 2);
    Pantalla s(*datos_);
    ASSERT_TRUE(abrir(s));
    ASSERT_TRUE(s.focus(QStringLiteral("DBGrid2")));
    s.form().Table2().Last();
    messages_.answer(QStringLiteral("NO"));
    EXPECT_TRUE(ctrlSupr(s));
    EXPECT_EQ(messages_.texts(),
              QStringList{QStringLiteral("¿ Está seguro de querer eliminar la linea ?")});
    EXPECT_EQ(lineasVistas(s).size(), 2);
    messages_.answer(QStringLiteral("SI"));
    EXPECT_TRUE(ctrlSupr(s));
    EXPECT_EQ(lineasVistas(s), QStringList{QStringLiteral("1/1")});
    EXPECT_EQ(filas(QStringLiteral("PRULINEA")), QStringLiteral("1"));
}

TEST_P(LinesMaster, DeletingTheHeaderTakesAllItsLinesOnlyOnYes) {
    lineas(1, 3);
    lineas(2, 2);
    Pantalla s(*datos_);
    ASSERT_TRUE(abrir(s));
    messages_.answer(QStringLiteral("NO"));
    ASSERT_TRUE(s.click(QStringLiteral("Eliminar1")));
    EXPECT_EQ(messages_.texts(), QStringList{kEliminarTodo});
    EXPECT_EQ(filas(QStringLiteral("PRUCAB")), QStringLiteral("2"));
    EXPECT_EQ(filas(QStringLiteral("PRULINEA")), QStringLiteral("5"));
    messages_.answer(QStringLiteral("SI"));
    ASSERT_TRUE(s.click(QStringLiteral("Eliminar1")));
    EXPECT_EQ(filas(QStringLiteral("PRUCAB"), 1), QStringLiteral("0"));
    EXPECT_EQ(filas(QStringLiteral("PRULINEA"), 1), QStringLiteral("0"));
    EXPECT_EQ(filas(QStringLiteral("PRULINEA"), 2), QStringLiteral("2"));
    EXPECT_EQ(s.form().Table1().FieldByName(QStringLiteral("Numero")).AsString(),
              QStringLiteral("2"));
    EXPECT_EQ(lineasVistas(s), (QStringList{QStringLiteral("2/1"), QStringLiteral("2/2")}));
}

TEST_P(LinesMaster, ThePendingLineIsPostedWithTheHeader) {
    Pantalla s(*datos_);
    ASSERT_TRUE(abrir(s));
    ASSERT_TRUE(s.edit(QStringLiteral("EditDescripcion"), QStringLiteral("Cambiada")));
    ASSERT_TRUE(nuevaLinea(s, QStringLiteral("pendiente")));
    EXPECT_EQ(s.form().Table1().State(), DatasetState::Edit);
    EXPECT_EQ(s.form().Table2().State(), DatasetState::Insert);
    ASSERT_TRUE(s.form().Rutinas().Ejecutar([&] { s.form().Table1().Post(); }));
    EXPECT_EQ(s.form().Table2().State(), DatasetState::Browse);
    EXPECT_EQ(texto(1, 1), QStringLiteral("pendiente"));
    EXPECT_EQ(descripcion(1), QStringLiteral("Cambiada"));
}

TEST_P(LinesMaster, ARefusedLineIsToldAndCancelled) {
    Pantalla s(*datos_);
    ASSERT_TRUE(abrir(s));
    ASSERT_TRUE(nuevaLinea(s, QStringLiteral("MAL")));
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(ultimoMensaje(), kNoValida);
    EXPECT_EQ(s.form().Table2().State(), DatasetState::Browse);
    EXPECT_EQ(filas(QStringLiteral("PRULINEA")), QStringLiteral("0"));
}

TEST_P(LinesMaster, ALineTooLongForItsFieldIsToldAndKeptAsTyped) {
    Pantalla s(*datos_);
    ASSERT_TRUE(abrir(s));
    const QString largo = QString(41, u'x');
    ASSERT_TRUE(nuevaLinea(s, largo));
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme")));
    EXPECT_TRUE(ultimoMensaje().contains(QStringLiteral("no puede tener más de 40 caracteres")))
        << ultimoMensaje().toStdString();
    EXPECT_EQ(s.form().Table2().State(), DatasetState::Insert);
    EXPECT_EQ(s.form().Table2().FieldByName(QStringLiteral("Texto")).AsString(), largo);
    EXPECT_EQ(filas(QStringLiteral("PRULINEA")), QStringLiteral("0"));
}

TEST_P(LinesMaster, CancellingANewHeaderCancelsItsLine) {
    Pantalla s(*datos_);
    ASSERT_TRUE(s.open());
    ASSERT_TRUE(s.click(QStringLiteral("Agregar")));
    EXPECT_EQ(s.form().Table1().FieldByName(QStringLiteral("Numero")).AsString(),
              QStringLiteral("3"))
        << "a numbered document takes the next number";
    ASSERT_TRUE(nuevaLinea(s, QStringLiteral("x")));
    EXPECT_EQ(s.form().Table2().FieldByName(QStringLiteral("Numero")).AsString(),
              QStringLiteral("3"));
    ASSERT_TRUE(s.click(QStringLiteral("pbCancelar")));
    EXPECT_EQ(s.form().Table1().State(), DatasetState::Browse);
    EXPECT_EQ(s.form().Table2().State(), DatasetState::Browse);
    EXPECT_EQ(filas(QStringLiteral("PRULINEA")), QStringLiteral("0"));
    EXPECT_EQ(filas(QStringLiteral("PRUCAB")), QStringLiteral("2"));
}

TEST_P(LinesMaster, ALineTheValidatorRefusesStaysPendingOnItsColumnAndIsNotPosted) {
    Pantalla s(*datos_);
    ASSERT_TRUE(abrir(s));
    ASSERT_TRUE(columna(s, QStringLiteral("Texto")));
    ASSERT_TRUE(nuevaLinea(s, QStringLiteral("NO")));

    EXPECT_FALSE(columna(s, QStringLiteral("Tipo")));
    EXPECT_EQ(messages_.texts(), QStringList{kNoPartida});
    EXPECT_EQ(s.form().validaciones, QStringList{QStringLiteral("DBGrid2")});
    EXPECT_EQ(s.form().DBGrid2().SelectedIndex, 1) << "the focus stays on the column left";
    EXPECT_EQ(s.form().Table2().State(), DatasetState::Insert);

    messages_.clear();
    s.form().validaciones.clear();
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(messages_.texts(), (QStringList{kNoPartida, kNoGrabada}));
    EXPECT_EQ(s.form().validaciones, QStringList{QStringLiteral("-")}) << "no sender on post";
    EXPECT_EQ(s.form().Table2().State(), DatasetState::Insert);
    EXPECT_EQ(filas(QStringLiteral("PRULINEA")), QStringLiteral("0"));

    ASSERT_TRUE(poner(s, QStringLiteral("Texto"), QStringLiteral("SÍ")));
    EXPECT_TRUE(columna(s, QStringLiteral("Tipo")));
    EXPECT_TRUE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(texto(1, 1), QStringLiteral("SÍ"));
}

TEST_P(LinesMaster, ARefusedLineStopsTheHeaderPostThatCarriesIt) {
    Pantalla s(*datos_);
    ASSERT_TRUE(abrir(s));
    ASSERT_TRUE(s.edit(QStringLiteral("EditDescripcion"), QStringLiteral("Cambiada")));
    ASSERT_TRUE(nuevaLinea(s, QStringLiteral("NO")));
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(ultimoMensaje(), kNoGrabada);
    EXPECT_EQ(s.form().Table1().State(), DatasetState::Edit);
    EXPECT_EQ(s.form().Table2().State(), DatasetState::Insert);

    // The database's refusal cancels the line and still stops the header.
    messages_.clear();
    ASSERT_TRUE(poner(s, QStringLiteral("Texto"), QStringLiteral("MAL")));
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(messages_.texts(), QStringList{kNoValida});
    EXPECT_EQ(s.form().Table2().State(), DatasetState::Browse);
    EXPECT_EQ(s.form().Table1().State(), DatasetState::Edit);
    EXPECT_EQ(descripcion(1), QStringLiteral("Doc 1"));
    EXPECT_EQ(filas(QStringLiteral("PRULINEA")), QStringLiteral("0"));
    EXPECT_TRUE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(descripcion(1), QStringLiteral("Cambiada"));
}

TEST_P(LinesMaster, LeavingALineColumnChecksItsPermittedValues) {
    Pantalla s(*datos_);
    ASSERT_TRUE(abrir(s));
    ASSERT_TRUE(columna(s, QStringLiteral("Tipo")));
    ASSERT_TRUE(nuevaLinea(s, QStringLiteral("a")));
    ASSERT_TRUE(poner(s, QStringLiteral("Tipo"), QStringLiteral("Otro")));
    const QString aviso =
        QStringLiteral("¡ El valor \"Otro\" de la columna \"Tipo\" no es correcto !");
    EXPECT_FALSE(columna(s, QStringLiteral("Texto")));
    EXPECT_EQ(messages_.texts(), QStringList{aviso});
    EXPECT_FALSE(s.click(QStringLiteral("pbConforme"))) << "the post checks every column";
    EXPECT_EQ(messages_.texts(), (QStringList{aviso, aviso}));
    EXPECT_EQ(s.form().Table2().State(), DatasetState::Insert);
    ASSERT_TRUE(poner(s, QStringLiteral("Tipo"), QStringLiteral("Trabajo")));
    EXPECT_TRUE(columna(s, QStringLiteral("Texto")));
    EXPECT_TRUE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(ok(QStringLiteral("SELECT Tipo FROM PRULINEA WHERE Numero = 1")).trimmed(),
              QStringLiteral("Trabajo"));
}

TEST_P(LinesMaster, LeavingTheLineNumberChecksTheLineKeyWithinItsHeader) {
    lineas(1, 2);
    Pantalla s(*datos_);
    ASSERT_TRUE(abrir(s));
    const QString linea = QStringLiteral("Linea"), siguiente = QStringLiteral("Texto");
    ASSERT_TRUE(columna(s, linea));
    ASSERT_TRUE(nuevaLinea(s, QStringLiteral("a")));
    EXPECT_EQ(s.form().Table2().FieldByName(linea).AsString(), QStringLiteral("3"));

    ASSERT_TRUE(poner(s, linea, QStringLiteral("2")));
    EXPECT_FALSE(columna(s, siguiente));
    EXPECT_EQ(messages_.texts(), QStringList{QStringLiteral("¡ Ya existe el registro !")});
    EXPECT_EQ(s.form().DBGrid2().SelectedIndex, 0);

    messages_.clear();
    ASSERT_TRUE(poner(s, linea, QStringLiteral("0")));
    EXPECT_FALSE(columna(s, siguiente));
    EXPECT_EQ(messages_.texts(),
              QStringList{QStringLiteral("¡ El valor debe estar entre 1 y 99999999 !")});

    messages_.clear();
    s.form().validaciones.clear();
    ASSERT_TRUE(poner(s, linea, QStringLiteral("7")));
    EXPECT_TRUE(columna(s, siguiente));
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'|').toStdString();
    EXPECT_EQ(s.form().validaciones, QStringList{QStringLiteral("DBGrid2")})
        << "the lines' validator runs within the key check";
    ASSERT_TRUE(s.click(QStringLiteral("pbConforme")));
    EXPECT_EQ(texto(1, 7), QStringLiteral("a"));

    // The same number under another header is no repeat.
    s.form().Table1().Next();
    ASSERT_TRUE(columna(s, linea));
    ASSERT_TRUE(nuevaLinea(s, QStringLiteral("b")));
    ASSERT_TRUE(poner(s, linea, QStringLiteral("2")));
    EXPECT_TRUE(columna(s, siguiente));

    // Leaving the number empty drops the new line.
    ASSERT_TRUE(columna(s, linea));
    ASSERT_TRUE(poner(s, linea, {}));
    EXPECT_FALSE(columna(s, siguiente));
    EXPECT_EQ(s.form().Table2().State(), DatasetState::Browse);
    EXPECT_EQ(filas(QStringLiteral("PRULINEA"), 2), QStringLiteral("0"));
}

TEST_P(LinesMaster, TheProgrammableListingAsksWhetherToListTheLines) {
    Pantalla s(*datos_);
    ASSERT_TRUE(s.open());
    QStringList listadas;
    s.form().Rutinas().Ventanas.ListadoProgramable = [&](forms::Dataset &d) {
        listadas << d.Name() + u':' + d.KeyTableName();
    };
    const QString pregunta =
        QStringLiteral("¿Desea realizar el Listado Programable de las Líneas?");
    for (const char *respuesta : {"SI", "NO", ""}) {
        messages_.clear();
        messages_.answer(QString::fromLatin1(respuesta));
        ASSERT_TRUE(s.click(QStringLiteral("ListadoProgramable1")));
        EXPECT_EQ(messages_.texts(), QStringList{pregunta});
    }
    EXPECT_EQ(listadas,
              (QStringList{QStringLiteral("Table2:PRULINEA"), QStringLiteral("Table1:PRUCAB"),
                           QStringLiteral("Table1:PRUCAB")}));

    // A form without lines lists its table and asks nothing.
    ScreenTest<FichaDocumento> f(*datos_);
    ASSERT_TRUE(f.open());
    f.form().Rutinas().Ventanas.ListadoProgramable = s.form().Rutinas().Ventanas.ListadoProgramable;
    messages_.clear();
    listadas.clear();
    ASSERT_TRUE(f.click(QStringLiteral("ListadoProgramable1")));
    EXPECT_TRUE(messages_.shown().isEmpty());
    EXPECT_EQ(listadas, QStringList{QStringLiteral("Table1:PRUCAB")});
}

TEST_P(LinesMaster, AHeaderTheDatabaseWillNotDeleteKeepsItsLines) {
    if (backend() == Backend::SQLite) {
        ok(QStringLiteral("CREATE TRIGGER PRUCAB_Protegido BEFORE DELETE ON PRUCAB "
                          "WHEN OLD.Numero = 1 BEGIN SELECT RAISE(ABORT, 'protegido'); END"));
    } else {
        ok(QStringLiteral("CREATE FUNCTION PRUCAB_Protegido() RETURNS trigger AS $$ BEGIN "
                          "IF OLD.Numero = 1 THEN RAISE EXCEPTION 'protegido'; END IF; "
                          "RETURN OLD; END $$ LANGUAGE plpgsql"));
        ok(QStringLiteral("CREATE TRIGGER PRUCAB_Protegido BEFORE DELETE ON PRUCAB "
                          "FOR EACH ROW EXECUTE FUNCTION PRUCAB_Protegido()"));
    }
    lineas(1, 3);
    Pantalla s(*datos_);
    ASSERT_TRUE(abrir(s));
    messages_.answer(QStringLiteral("SI"));
    EXPECT_FALSE(s.click(QStringLiteral("Eliminar1")));
    EXPECT_EQ(messages_.texts(),
              (QStringList{kEliminarTodo,
                           QStringLiteral("¡ Se ha producido un error eliminando el registro !")}));
    EXPECT_EQ(filas(QStringLiteral("PRUCAB")), QStringLiteral("2"));
    EXPECT_EQ(filas(QStringLiteral("PRULINEA"), 1), QStringLiteral("3"))
        << "the lines deleted before the failure come back";
    EXPECT_EQ(s.form().Table1().FieldByName(QStringLiteral("Numero")).AsString(),
              QStringLiteral("1"));
    EXPECT_EQ(lineasVistas(s).size(), 3);

    // The same screen still deletes a header the database lets go.
    messages_.clear();
    s.form().Table1().Next();
    messages_.answer(QStringLiteral("SI"));
    EXPECT_TRUE(s.click(QStringLiteral("Eliminar1")));
    EXPECT_EQ(filas(QStringLiteral("PRUCAB")), QStringLiteral("1"));
}

TEST_P(LinesMaster, ClosingWithAPendingLineAsksWhetherToCancelIt) {
    const QString pregunta =
        QStringLiteral("Hay registros de Documento de Prueba (Table2, )  cuya grabación no ha sido "
                       "confirmada. ¿Desea cancelar la grabación?");
    {
        Pantalla s(*datos_);
        ASSERT_TRUE(abrir(s));
        ASSERT_TRUE(nuevaLinea(s, QStringLiteral("cancelada")));
        messages_.answer(QStringLiteral("SI"));
        EXPECT_TRUE(s.form().Close());
        EXPECT_EQ(messages_.texts(), QStringList{pregunta});
        EXPECT_EQ(filas(QStringLiteral("PRULINEA")), QStringLiteral("0"));
    }
    Pantalla s(*datos_);
    ASSERT_TRUE(abrir(s));
    ASSERT_TRUE(nuevaLinea(s, QStringLiteral("NO")));
    messages_.clear();
    messages_.answer(QStringLiteral("NO"));
    EXPECT_FALSE(s.form().Close()) << "a line the validator refuses keeps the form open";
    EXPECT_EQ(messages_.texts(), (QStringList{pregunta, kNoPartida, kNoGrabada}));
    EXPECT_EQ(s.form().Table2().State(), DatasetState::Insert);

    ASSERT_TRUE(poner(s, QStringLiteral("Texto"), QStringLiteral("grabada")));
    messages_.clear();
    messages_.answer(QStringLiteral("NO"));
    EXPECT_TRUE(s.form().Close());
    EXPECT_EQ(messages_.texts(), QStringList{pregunta});
    EXPECT_EQ(texto(1, 1), QStringLiteral("grabada"));
}

// Two sessions on one installation take the same next number; the later post asks.
TEST_P(LinesMaster, ANumberTakenByAnotherSessionIsReassignedOnYes) {
    ScriptedMessages otrosMensajes;
    TfGENEINIC otraSesion(settings_, &otrosMensajes);
    QString motivo;
    ASSERT_TRUE(otraSesion.Conectar(&motivo)) << motivo.toStdString();
    TModuloDatos otrosDatos(otraSesion);
    {
        ScreenTest<FichaDocumento> a(*datos_);
        ScreenTest<FichaDocumento> b(otrosDatos);
        ASSERT_TRUE(a.open());
        ASSERT_TRUE(b.open());
        for (auto *s : {&a, &b}) {
            ASSERT_TRUE(s->click(QStringLiteral("Agregar")));
            EXPECT_EQ(s->form().Table1().FieldByName(QStringLiteral("Numero")).AsString(),
                      QStringLiteral("3"));
        }
        ASSERT_TRUE(a.edit(QStringLiteral("EditDescripcion"), QStringLiteral("de A")));
        ASSERT_TRUE(b.edit(QStringLiteral("EditDescripcion"), QStringLiteral("de B")));
        ASSERT_TRUE(b.click(QStringLiteral("pbConforme")));
        messages_.answer(QStringLiteral("SI"));
        ASSERT_TRUE(a.click(QStringLiteral("pbConforme")));
        EXPECT_EQ(messages_.texts(),
                  QStringList{QStringLiteral("¿Desea que se reasigne uno nuevo?")});
        EXPECT_EQ(descripcion(3), QStringLiteral("de B"));
        EXPECT_EQ(descripcion(4), QStringLiteral("de A"));
        // On "NO" the post is refused as any repeated key.
        ASSERT_TRUE(a.click(QStringLiteral("pbCancelar")));
        ASSERT_TRUE(a.click(QStringLiteral("Agregar")));
        ASSERT_TRUE(b.click(QStringLiteral("pbCancelar")));
        ASSERT_TRUE(b.click(QStringLiteral("Agregar")));
        ASSERT_TRUE(b.edit(QStringLiteral("EditDescripcion"), QStringLiteral("otra de B")));
        ASSERT_TRUE(b.click(QStringLiteral("pbConforme")));
        messages_.clear();
        messages_.answer(QStringLiteral("NO"));
        EXPECT_FALSE(a.click(QStringLiteral("pbConforme")));
        EXPECT_EQ(messages_.texts(),
                  (QStringList{QStringLiteral("¿Desea que se reasigne uno nuevo?"),
                               QStringLiteral("¡ Este registro ya existe !")}));
        EXPECT_EQ(filas(QStringLiteral("PRUCAB")), QStringLiteral("5"));
    }
}

CO_ON_BOTH_BACKENDS(LinesMaster);

} // namespace
} // namespace co::forms
