// Tables made from their definitions on both back-ends: on the failure path of a
// statement, from the version and customer files, with user-defined fields,
// temporary definitions, the first company, and definitions that are wrong.
// A table is made whole or not at all, inside the caller's transaction when
// there is one, and an existing table gets back the indexes it lacks.
#include "core/table_definition.h"
#include "support/layer_fixture.h"
#include "support/schema_check.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <gtest/gtest.h>

namespace co {
namespace {

class CreacionTablas : public test::TablesOnDemandTest {
protected:
    void SetUp() override {
        TablesOnDemandTest::SetUp();
        if (HasFatalFailure())
            return;
        settings_.NombrePrimeraEmpresa =
            QStringLiteral("Construcciones y Reformas del Norte, Sociedad Anónima");
        reconnect();
    }

    bool existe(const QString &tabla, const QString &conexion = {}) {
        return !datos_
                    ->EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM ") + tabla, conexion,
                                  QStringLiteral("Silenciosa,No Crear Tabla"))
                    .startsWith(QStringLiteral("Error."));
    }

    void escribir(const QString &nombre, const QString &texto) {
        QFile f(QDir(settings_.PathBaseDatosGeneral).filePath(nombre));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(texto.toUtf8());
    }

    QString estructuras() {
        QString texto;
        EXPECT_TRUE(creador_->Estructuras(&texto));
        return texto;
    }

    bool mensajeQueEmpieza(QChar tipo, const QString &inicio) const {
        for (const Message &m : messages_.shown())
            if (m.kind == tipo && m.text.startsWith(inicio))
                return true;
        return false;
    }

    bool baseDatosEmpresa(const QString &alias) {
        if (backend() == Backend::SQLite)
            return QFileInfo::exists(companyFile(alias));
        return ok(QStringLiteral("SELECT COUNT(*) FROM pg_namespace WHERE nspname = lower(%1)")
                      .arg(Entrecomillar(alias))) == u"1";
    }
};

TEST_P(CreacionTablas, StatementOnAMissingTableCreatesItAndGoesOn) {
    EXPECT_FALSE(existe(QStringLiteral("OBRA")));
    EXPECT_EQ(datos_->EjecutarSQL(QStringLiteral("SELECT * FROM OBRA")), QString());
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'\n').toStdString();
    EXPECT_EQ(datos_->ClavePrimaria(QStringLiteral("OBRA")), QStringLiteral("Codigo"));
    EXPECT_EQ(datos_->ClavePrimaria(QStringLiteral("OBRA"), QStringLiteral("Clave2")),
              QStringLiteral("CodigoCliente;Codigo"));
    // Defaults: empty text, zero numbers, the null date; names in the schema's case.
    ok(QStringLiteral("INSERT INTO OBRA (Codigo) VALUES ('7')"));
    EXPECT_EQ(ok(QStringLiteral(
                  "SELECT COUNT(*) FROM OBRA WHERE Descripcion = '' AND GastosIndirectos = 0 "
                  "AND CodigoCliente = 0 AND Fecha = '1899-12-30 00:00:00'")),
              QStringLiteral("1"));
    EXPECT_TRUE(ok(QStringLiteral("SELECT * FROM OBRA"), {}, QStringLiteral("FormatoINI"))
                    .startsWith(QStringLiteral("Codigo=7·Descripcion=·DescripcionAmpliada=")));
    // The key is required and unique.
    EXPECT_TRUE(datos_
                    ->EjecutarSQL(QStringLiteral("INSERT INTO OBRA (Codigo) VALUES ('7')"), {},
                                  QStringLiteral("Silenciosa"))
                    .contains(QStringLiteral("Key violation")));
}

TEST_P(CreacionTablas, EveryTableOfTheStatementIsMadeWhateverItsCase) {
    EXPECT_EQ(ok(QStringLiteral(
                  "SELECT O.Codigo FROM obra O JOIN Capitulo C ON C.CodigoObra = O.Codigo")),
              QString());
    EXPECT_TRUE(existe(QStringLiteral("OBRA")));
    EXPECT_TRUE(existe(QStringLiteral("CAPITULO")));
    EXPECT_EQ(ok(QStringLiteral("UPDATE PARTIDA SET Descripcion = 'x' WHERE CodigoObra = 1")),
              QString());
    EXPECT_EQ(datos_->ClavePrimaria(QStringLiteral("PARTIDA")),
              QStringLiteral("CodigoObra;CodigoCapitulo;Linea"));
}

TEST_P(CreacionTablas, ExistingTableIsLeftAloneAndAnsweredFalse) {
    ok(QStringLiteral("SELECT * FROM OBRA"));
    ok(QStringLiteral("INSERT INTO OBRA (Codigo, Descripcion) VALUES ('1', 'Nave')"));
    QString motivo = QStringLiteral("x");
    EXPECT_FALSE(creador_->CrearTabla(QStringLiteral("OBRA"), {}, {}, &motivo));
    EXPECT_TRUE(motivo.isEmpty());
    EXPECT_FALSE(
        creador_->CrearTabla(QStringLiteral("dbo.obra"), QStringLiteral("Database"), {}, &motivo));
    EXPECT_EQ(ok(QStringLiteral("SELECT Descripcion FROM OBRA")), QStringLiteral("Nave"));
}

TEST_P(CreacionTablas, GeneralTablesGoToTheGeneralData) {
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo FROM USUARIO")), QString());
    EXPECT_TRUE(existe(QStringLiteral("USUARIO"), QStringLiteral("DatabaseGeneral")));
    EXPECT_EQ(datos_->ClavePrimaria(QStringLiteral("USUARIO")), QStringLiteral("Codigo"));
}

TEST_P(CreacionTablas, EmpresaGetsTheFirstCompanyAndItsDatabase) {
    const QString alias = sesion_->NombreAliasEmpresa(1);
    ASSERT_FALSE(baseDatosEmpresa(alias));
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo FROM EMPRESA")), QStringLiteral("1"));
    const QString nombre = settings_.NombrePrimeraEmpresa;
    EXPECT_EQ(ok(QStringLiteral("SELECT Nombre, Abreviatura FROM EMPRESA")),
              nombre.left(40) + u'|' + nombre.left(20));
    EXPECT_TRUE(baseDatosEmpresa(alias));
    QString motivo;
    EXPECT_TRUE(sesion_->ConectarEmpresa(1, &motivo)) << motivo.toStdString();
}

TEST_P(CreacionTablas, EmpresaMadeByTheUpdateFormHasNoRows) {
    creador_->Propietario = QStringLiteral("fGENEACTU");
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo FROM EMPRESA")), QString());
}

TEST_P(CreacionTablas, CustomerAndVersionFilesShapeTheTables) {
    creador_->RutaEstructuras();
    escribir(QStringLiteral("DATABASE.VRT"),
             QStringLiteral("MAQUETA/C/1/Clave/ftString/8/*\r\nMAQUETA/C/2/Peso/ftFloat/0/\r\n"));
    escribir(QStringLiteral("DATABASE.ESP"),
             QStringLiteral(
                 "[Definiciones "
                 "Complementarias]\r\nOBRA/C/100/Zona/ftString/20/\r\nOBRA/I/9/Zona/Zona;Codigo\r\n"
                 "[Definiciones Nuevas o Sustitutivas]\r\nMONEDA/C/1/Codigo/ftString/3/*\r\n"
                 "MONEDA/C/2/Cambio/ftFloat/0/\r\n"));
    ok(QStringLiteral("INSERT INTO OBRA (Codigo, Zona) VALUES ('1', 'Norte')"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Zona FROM OBRA")), QStringLiteral("Norte"));
    EXPECT_EQ(datos_->ClavePrimaria(QStringLiteral("OBRA"), QStringLiteral("Zona")),
              QStringLiteral("Zona;Codigo"));
    ok(QStringLiteral("INSERT INTO MAQUETA (Clave, Peso) VALUES ('A', '2.5')"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Clave, Peso FROM MAQUETA")), QStringLiteral("A|2,5"));
    ok(QStringLiteral("INSERT INTO MONEDA (Codigo, Cambio) VALUES ('USD', '1.123456789012')"));
    EXPECT_EQ(datos_->ColumnasTabla(QStringLiteral("MONEDA")), QStringLiteral("Codigo;Cambio"));
    EXPECT_EQ(
        ok(QStringLiteral(
            "SELECT COUNT(*) FROM MONEDA WHERE Cambio > 1.12345678901 AND Cambio < 1.12345678902")),
        QStringLiteral("1"));
}

TEST_P(CreacionTablas, UserFieldsAreAddedAndBadOnesLeftOutWithAWarning) {
    general(QStringLiteral(
        "INSERT INTO CAMPOUSR (NombreTabla, OrdenCampo, NombreCampo, TipoCampo, LongitudCampo) "
        "VALUES ('OBRA', '2', 'Peso', 'Numerico', '0')"));
    ok(QStringLiteral("SELECT * FROM USUARIO"));
    messages_.clear();
    for (const char *fila :
         {"'OBRA', '1', 'Zona', 'Alfanumerico', '12'", "'OBRA', '3', 'Raro', 'Imaginario', '0'",
          "'OBRA', '4', 'A INT); DROP TABLE USUARIO', 'Entero', '0'",
          "'OBRA', '5', 'Codigo', 'Entero', '0'", "'OBRA', '6', 'Alta', 'Fecha', '0'",
          "'CLIENTE', '1', 'Ajeno', 'Texto', '0'"})
        general(QStringLiteral("INSERT INTO CAMPOUSR (NombreTabla, OrdenCampo, NombreCampo, "
                               "TipoCampo, LongitudCampo) VALUES (") +
                QString::fromUtf8(fila) + u')');
    QString lineas, motivo;
    ASSERT_TRUE(creador_->CamposUsuario(QStringLiteral("OBRA"), &lineas, &motivo));
    EXPECT_EQ(lineas.split(QStringLiteral("\r\n"), Qt::SkipEmptyParts).first(),
              QStringLiteral("OBRA/C/1001/Zona/ftString/12/"));
    EXPECT_TRUE(creador_
                    ->DefinicionTabla(QStringLiteral("OBRA"), estructuras(),
                                      QStringLiteral("CamposUsuario"))
                    .contains(QStringLiteral("OBRA/C/1002/Peso/ftFloat/0/")));

    EXPECT_EQ(ok(QStringLiteral("SELECT * FROM OBRA")), QString());
    const QStringList columnas = datos_->ColumnasTabla(QStringLiteral("OBRA")).split(u';');
    EXPECT_TRUE(columnas.contains(QStringLiteral("Zona")));
    EXPECT_TRUE(columnas.contains(QStringLiteral("Peso")));
    EXPECT_TRUE(columnas.contains(QStringLiteral("Alta")));
    EXPECT_FALSE(columnas.contains(QStringLiteral("Raro")));
    EXPECT_FALSE(columnas.contains(QStringLiteral("Ajeno")));
    EXPECT_EQ(columnas.count(QStringLiteral("Codigo")), 1);
    EXPECT_TRUE(existe(QStringLiteral("USUARIO"), QStringLiteral("DatabaseGeneral")));
    ASSERT_EQ(messages_.shown().size(), 1) << messages_.texts().join(u'\n').toStdString();
    const QString aviso = messages_.shown()[0].text;
    EXPECT_TRUE(aviso.startsWith(QStringLiteral("Se ha producido un error al incorporar los Campos "
                                                "de Usuario en la tabla: OBRA. Motivo: ")));
    EXPECT_TRUE(aviso.contains(QStringLiteral("Imaginario")));
    EXPECT_TRUE(aviso.contains(QStringLiteral("DROP TABLE USUARIO")));
    EXPECT_TRUE(aviso.contains(QStringLiteral("El campo Codigo está repetido en la tabla OBRA.")));
    // A user field takes values like any other.
    ok(QStringLiteral("INSERT INTO OBRA (Codigo, Zona, Peso) VALUES ('1', 'Sur', '3.25')"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Zona, Peso FROM OBRA")), QStringLiteral("Sur|3,25"));
}

TEST_P(CreacionTablas, TemporaryDefinitionsAreMadeAnewAtEachUse) {
    const QString tabla = QStringLiteral("TEMP000001_fPRUEBA");
    const QString def =
        QStringLiteral("Tabla Temporal 2\r\n/C/1/NumeroFactura/ftInteger/0/*/\r\n"
                       "/C/2/Linea/ftSmallint/0/*/\r\n/C/3/LineaMemo/ftSmallint/0/*/\r\n"
                       "/C/4/CodigoCapitulo/ftInteger/0/\r\n");
    QString motivo;
    ASSERT_TRUE(creador_->CrearTabla(tabla, {}, def, &motivo)) << motivo.toStdString();
    EXPECT_EQ(datos_->ClavePrimaria(tabla), QStringLiteral("NumeroFactura;Linea;LineaMemo"));
    ok(QStringLiteral("INSERT INTO %1 (NumeroFactura, Linea, LineaMemo) VALUES ('1', '1', '0')")
           .arg(tabla));
    // Reachable from company statements too.
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM %1").arg(tabla)), QStringLiteral("1"));
    ASSERT_TRUE(creador_->CrearTabla(tabla, {}, def, &motivo)) << motivo.toStdString();
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM %1").arg(tabla)), QStringLiteral("0"));
    // No "*" mark: no key, and the statement is still valid.
    ASSERT_TRUE(creador_->CrearTabla(
        QStringLiteral("TEMP000002_fPRUEBA"), {},
        QStringLiteral(
            "Tabla Temporal\r\n/C/1/Clave/ftString/40/\r\n/C/2/Descripcion/ftString/200/"),
        &motivo))
        << motivo.toStdString();
    EXPECT_EQ(datos_->ClavePrimaria(QStringLiteral("TEMP000002_fPRUEBA")), QString());
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(CreacionTablas, DefinitionGivenAsTwoFileNames) {
    escribir(QStringLiteral("uno.txt"), QStringLiteral("PRUEBA/C/1/Codigo/ftInteger/0/*\r\n"));
    escribir(QStringLiteral("dos.txt"), QStringLiteral("OTRA/C/1/Codigo/ftInteger/0/*\r\n"));
    const QDir dir(settings_.PathBaseDatosGeneral);
    QString motivo;
    EXPECT_TRUE(creador_->CrearTabla(QStringLiteral("OTRA"), {},
                                     dir.filePath(QStringLiteral("uno.txt")) + u';' +
                                         dir.filePath(QStringLiteral("dos.txt")),
                                     &motivo))
        << motivo.toStdString();
    EXPECT_TRUE(existe(QStringLiteral("OTRA")));
}

TEST_P(CreacionTablas, BadDefinitionsFailWithSpanishTextsAndLeaveNothing) {
    QString motivo;
    EXPECT_FALSE(creador_->CrearTabla(QStringLiteral("MALA"), {},
                                      QStringLiteral("MALA/C/1/Codigo/ftNada/0/*"), &motivo));
    EXPECT_EQ(
        motivo,
        QStringLiteral("El campo Codigo de la tabla MALA tiene un tipo desconocido: \"ftNada\"."));
    EXPECT_TRUE(mensajeQueEmpieza(
        u'A',
        QStringLiteral("¡No es posible crear la tabla SQL (Paso 1)!. Motivo: El campo Codigo")));
    EXPECT_FALSE(existe(QStringLiteral("MALA")));

    // An index the back-end refuses: the table is not left half made.
    ok(QStringLiteral("CREATE TABLE OCUPA (A INTEGER)"));
    ok(QStringLiteral("CREATE INDEX MEDIA_Clave2 ON OCUPA (A)"));
    messages_.clear();
    EXPECT_FALSE(creador_->CrearTabla(
        QStringLiteral("MEDIA"), {},
        QStringLiteral("MEDIA/C/1/A/ftInteger/0/*\r\nMEDIA/I/2/Clave2/A"), &motivo));
    EXPECT_FALSE(motivo.isEmpty());
    EXPECT_TRUE(
        mensajeQueEmpieza(u'A', QStringLiteral("No es posible crear el índice en SQL. Mensaje: ")));
    EXPECT_FALSE(existe(QStringLiteral("MEDIA")));

    // A table with no definition: the statement fails with its own text as well.
    messages_.clear();
    const QString r = datos_->EjecutarSQL(QStringLiteral("SELECT * FROM NOHAY"), {},
                                          QStringLiteral("Silenciosa"));
    EXPECT_TRUE(
        r.startsWith(QStringLiteral("Error. No es posible ejecutar la sentencia SQL. Motivo: ")));
    EXPECT_TRUE(mensajeQueEmpieza(
        u'A', QStringLiteral("No se ha encontrado la definición de la tabla. Tabla: NOHAY")));
}

TEST_P(CreacionTablas, MissingStructureFileIsFatal) {
    ASSERT_TRUE(QFile::remove(creador_->RutaEstructuras()));
    creador_ = std::make_unique<CreadorTablas>(*datos_, QString());
    datos_->setTableCreator(creador_.get());
    const QString r =
        datos_->EjecutarSQL(QStringLiteral("SELECT * FROM OBRA"), {}, QStringLiteral("Silenciosa"));
    EXPECT_TRUE(r.startsWith(QStringLiteral("Error.")));
    EXPECT_TRUE(mensajeQueEmpieza(
        u'E', QStringLiteral("¡ Imposible abrir el fichero de estructuras de la Base de Datos !")));
    EXPECT_FALSE(QFileInfo::exists(creador_->RutaEstructuras()));
}

TEST_P(CreacionTablas, CompanyDatabaseThatCannotBeMadeIsFatal) {
    if (backend() == Backend::PostgreSQL)
        EXPECT_FALSE(creador_->CrearBaseDatos(QStringLiteral("no valido; DROP")));
    else
        EXPECT_FALSE(creador_->CrearBaseDatos(
            QDir(settings_.PathBaseDatosGeneral).filePath(QStringLiteral("general.db/1"))));
    EXPECT_TRUE(mensajeQueEmpieza(u'E', QStringLiteral("¡Imposible crear la base de datos ")));
    const QString alias = sesion_->NombreAliasEmpresa(4);
    ASSERT_FALSE(baseDatosEmpresa(alias));
    EXPECT_TRUE(creador_->CrearBaseDatos(alias));
    EXPECT_TRUE(baseDatosEmpresa(alias));
}

TEST_P(CreacionTablas, NamesComeBackInSchemaCaseForTablesMadeEarlier) {
    ok(QStringLiteral("SELECT * FROM CAPITULO"));
    ok(QStringLiteral("INSERT INTO CAPITULO (CodigoObra, CodigoCapitulo) VALUES ('1', '2')"));
    reconnect();
    EXPECT_TRUE(ok(QStringLiteral("SELECT * FROM CAPITULO"), {}, QStringLiteral("FormatoINI"))
                    .startsWith(QStringLiteral("CodigoObra=1·CodigoCapitulo=2·")));
}

TEST_P(CreacionTablas, EveryTableOfTheStructureFileCanBeMade) {
    const QString texto = estructuras();
    const QStringList tablas = ListaTablas(texto);
    ASSERT_FALSE(tablas.isEmpty());
    for (const QString &tabla : tablas) {
        QString motivo;
        const bool creada = creador_->CrearTabla(tabla, {}, {}, &motivo);
        // EMPRESA's company needs CAMPOUSR, which may have been made on the way.
        EXPECT_TRUE(creada || (motivo.isEmpty() && tabla == u"CAMPOUSR"))
            << tabla.toStdString() << ": " << motivo.toStdString();
        QStringList campos, clave;
        for (const QString &linea :
             LineasDefinicion(DefinicionTabla(tabla, texto, QStringLiteral("Campos")))) {
            const LineaDefinicion l = LeerLineaDefinicion(linea);
            campos << l.nombre;
            if (l.esClave())
                clave << l.nombre;
        }
        EXPECT_EQ(datos_->ColumnasTabla(tabla), campos.join(u';')) << tabla.toStdString();
        EXPECT_EQ(datos_->ClavePrimaria(tabla), clave.join(u';')) << tabla.toStdString();
        for (const QString &linea :
             LineasDefinicion(DefinicionTabla(tabla, texto, QStringLiteral("Indices")))) {
            const LineaDefinicion l = LeerLineaDefinicion(linea);
            if (l.nombre != u"<Primary>") {
                EXPECT_EQ(datos_->ClavePrimaria(tabla, l.nombre), l.tipo) << tabla.toStdString();
            }
        }
    }
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'\n').toStdString();
    EXPECT_EQ(test::DefectosEsquema(*datos_, QStringLiteral("Database"), texto), QStringList());
    EXPECT_EQ(test::DefectosEsquema(*datos_, QStringLiteral("DatabaseGeneral"), texto),
              QStringList());
}

// The indexes PARMAQOB is made with, as the catalog names them.
const QStringList kIndicesParmaqob = {QStringLiteral("PARMAQOB_CLAVE2"),
                                      QStringLiteral("PARMAQOB_CLAVE3"),
                                      QStringLiteral("PARMAQOB_CLAVE4")};

TEST_P(CreacionTablas, DroppedIndexesComeBackWhenTablesAreMadeOnDemandAgain) {
    ok(QStringLiteral("SELECT * FROM PARMAQOB"));
    ok(QStringLiteral("INSERT INTO PARMAQOB (Numero, CodigoMaquina) VALUES ('1', 'M1')"));
    ASSERT_EQ(test::IndicesDeTabla(*datos_, {}, QStringLiteral("PARMAQOB")), kIndicesParmaqob);
    ok(QStringLiteral("DROP INDEX PARMAQOB_Clave2"));
    ok(QStringLiteral("DROP INDEX PARMAQOB_Clave4"));
    // A later run of the program: a statement that makes OBRA looks at PARMAQOB too.
    reconnect();
    EXPECT_EQ(ok(QStringLiteral("SELECT P.CodigoMaquina FROM PARMAQOB P JOIN OBRA O ON "
                                "O.Codigo = P.CodigoObra")),
              QString());
    EXPECT_EQ(test::IndicesDeTabla(*datos_, {}, QStringLiteral("PARMAQOB")), kIndicesParmaqob);
    EXPECT_EQ(test::DefectosEsquema(*datos_, QStringLiteral("Database"), estructuras()),
              QStringList());
    EXPECT_EQ(ok(QStringLiteral("SELECT CodigoMaquina FROM PARMAQOB")), QStringLiteral("M1"));
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'\n').toStdString();
    // Asked directly, the same.
    ok(QStringLiteral("DROP INDEX PARMAQOB_Clave3"));
    reconnect();
    EXPECT_TRUE(creador_->CompletarIndices(QStringLiteral("parmaqob"), {}));
    EXPECT_EQ(test::IndicesDeTabla(*datos_, {}, QStringLiteral("PARMAQOB")), kIndicesParmaqob);
}

TEST_P(CreacionTablas, MissingIndexesOfAGeneralTableComeBackOnTheGeneralData) {
    // A customer's index on a general table.
    creador_->RutaEstructuras();
    escribir(
        QStringLiteral("DATABASE.ESP"),
        QStringLiteral("[Definiciones Complementarias]\r\nUSUARIO/I/9/Nombre/Nombre;Codigo\r\n"));
    const QString general = QStringLiteral("DatabaseGeneral");
    ok(QStringLiteral("SELECT Codigo FROM USUARIO"));
    const QStringList indices = {QStringLiteral("USUARIO_NOMBRE")};
    ASSERT_EQ(test::IndicesDeTabla(*datos_, general, QStringLiteral("USUARIO")), indices);
    ok(QStringLiteral("DROP INDEX USUARIO_Nombre"), general);
    reconnect();
    // Named from a company statement, it is still looked for on the general data.
    EXPECT_TRUE(creador_->CompletarIndices(QStringLiteral("USUARIO"), QStringLiteral("Database")));
    EXPECT_EQ(test::IndicesDeTabla(*datos_, general, QStringLiteral("USUARIO")), indices);
    EXPECT_EQ(test::DefectosEsquema(*datos_, general, estructuras()), QStringList());
}

TEST_P(CreacionTablas, AnIndexThatCannotBeMadeIsToldAndTheOthersWaitWithIt) {
    ok(QStringLiteral("SELECT * FROM PARMAQOB"));
    ok(QStringLiteral("DROP INDEX PARMAQOB_Clave2"));
    ok(QStringLiteral("DROP INDEX PARMAQOB_Clave3"));
    // Another table holds the name the index would take.
    ok(QStringLiteral("CREATE TABLE OCUPA (A INTEGER)"));
    ok(QStringLiteral("CREATE INDEX PARMAQOB_Clave2 ON OCUPA (A)"));
    reconnect();
    messages_.clear();
    EXPECT_FALSE(creador_->CompletarIndices(QStringLiteral("PARMAQOB"), {}));
    EXPECT_TRUE(
        mensajeQueEmpieza(u'A', QStringLiteral("No es posible crear el índice en SQL. Mensaje: ")))
        << messages_.texts().join(u'\n').toStdString();
    EXPECT_EQ(test::IndicesDeTabla(*datos_, {}, QStringLiteral("PARMAQOB")),
              QStringList{QStringLiteral("PARMAQOB_CLAVE4")});
    // The table stays in use, and the warning is not repeated in this run.
    messages_.clear();
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM PARMAQOB")), QStringLiteral("0"));
    EXPECT_TRUE(creador_->CompletarIndices(QStringLiteral("PARMAQOB"), {}));
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(CreacionTablas, AnIndexOnAFieldTheTableLacksIsLeftAlone) {
    ok(QStringLiteral("SELECT * FROM OBRA"));
    ok(QStringLiteral("DROP INDEX OBRA_Clave2"));
    creador_->RutaEstructuras();
    escribir(QStringLiteral("DATABASE.ESP"),
             QStringLiteral("[Definiciones Complementarias]\r\nOBRA/C/100/Zona/ftString/20/\r\n"
                            "OBRA/I/9/Zona/Zona;Codigo\r\n"));
    reconnect();
    messages_.clear();
    EXPECT_TRUE(creador_->CompletarIndices(QStringLiteral("OBRA"), {}));
    EXPECT_EQ(test::IndicesDeTabla(*datos_, {}, QStringLiteral("OBRA")),
              QStringList{QStringLiteral("OBRA_CLAVE2")});
    EXPECT_TRUE(messages_.shown().isEmpty()) << messages_.texts().join(u'\n').toStdString();
}

TEST_P(CreacionTablas, CreationInsideTheCallersTransactionFollowsIt) {
    ok(QStringLiteral("SELECT * FROM CAPITULO"));
    ASSERT_TRUE(sesion_->IniciarTransaccion());
    ok(QStringLiteral("INSERT INTO CAPITULO (CodigoObra, CodigoCapitulo) VALUES ('1', '1')"));
    ok(QStringLiteral("INSERT INTO PARMAQOB (Numero) VALUES ('1')"));
    EXPECT_TRUE(existe(QStringLiteral("PARMAQOB")));
    ASSERT_TRUE(sesion_->CancelarTransaccion());
    EXPECT_FALSE(existe(QStringLiteral("PARMAQOB")));
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM CAPITULO")), QStringLiteral("0"));

    ASSERT_TRUE(sesion_->IniciarTransaccion());
    ok(QStringLiteral("INSERT INTO CAPITULO (CodigoObra, CodigoCapitulo) VALUES ('1', '1')"));
    // A creation that fails takes back its own steps only.
    ok(QStringLiteral("CREATE TABLE OCUPA (A INTEGER)"));
    ok(QStringLiteral("CREATE INDEX MEDIA_Clave2 ON OCUPA (A)"));
    QString motivo;
    EXPECT_FALSE(creador_->CrearTabla(
        QStringLiteral("MEDIA"), {},
        QStringLiteral("MEDIA/C/1/A/ftInteger/0/*\r\nMEDIA/I/2/Clave2/A"), &motivo));
    EXPECT_FALSE(motivo.isEmpty());
    ok(QStringLiteral("INSERT INTO PARMAQOB (Numero) VALUES ('2')"));
    ASSERT_TRUE(sesion_->FinalizarTransaccion());
    EXPECT_FALSE(existe(QStringLiteral("MEDIA")));
    EXPECT_EQ(ok(QStringLiteral("SELECT COUNT(*) FROM CAPITULO")), QStringLiteral("1"));
    EXPECT_EQ(ok(QStringLiteral("SELECT Numero FROM PARMAQOB")), QStringLiteral("2"));
    EXPECT_EQ(test::IndicesDeTabla(*datos_, {}, QStringLiteral("PARMAQOB")), kIndicesParmaqob);
}

TEST_P(CreacionTablas, EmpresaIsNotKeptWithoutItsFirstCompany) {
    creador_->RutaEstructuras();
    // A customer's EMPRESA with no room for the abbreviation of company 1.
    escribir(QStringLiteral("DATABASE.ESP"),
             QStringLiteral("EMPRESA/C/1/Codigo/ftInteger/0/*\r\nEMPRESA/C/2/Nombre/ftString/40/"
                            "\r\nEMPRESA/I/2/Nombre/Nombre\r\n"));
    const QString r =
        datos_->EjecutarSQL(QStringLiteral("SELECT Codigo FROM EMPRESA"),
                            QStringLiteral("DatabaseGeneral"), QStringLiteral("Silenciosa"));
    EXPECT_TRUE(r.startsWith(QStringLiteral("Error."))) << r.toStdString();
    EXPECT_TRUE(
        mensajeQueEmpieza(u'E', QStringLiteral("¡ Imposible crear el registro de la empresa 1 !")));
    EXPECT_FALSE(existe(QStringLiteral("EMPRESA"), QStringLiteral("DatabaseGeneral")));
    EXPECT_TRUE(
        test::IndicesDeTabla(*datos_, QStringLiteral("DatabaseGeneral"), QStringLiteral("EMPRESA"))
            .isEmpty());
    // Put right, the next try makes it whole, the company's database kept from before.
    QFile::remove(QDir(settings_.PathBaseDatosGeneral).filePath(QStringLiteral("DATABASE.ESP")));
    EXPECT_EQ(ok(QStringLiteral("SELECT Codigo FROM EMPRESA"), QStringLiteral("DatabaseGeneral")),
              QStringLiteral("1"));
    EXPECT_TRUE(baseDatosEmpresa(sesion_->NombreAliasEmpresa(1)));
}

CO_ON_BOTH_BACKENDS(CreacionTablas);

} // namespace
} // namespace co
