// The table definition language as text: lines, parts, temporary definitions,
// merging of structure files, table lists, and the statements made from it.
#include "core/table_definition.h"
#include "support/gtest_qt_printing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

const QString kCRLF = QStringLiteral("\r\n");

QString lineas(std::initializer_list<const char *> ls) {
    QString out;
    for (const char *l : ls)
        out += QString::fromUtf8(l) + kCRLF;
    return out;
}

void escribir(const QString &ruta, const QByteArray &bytes) {
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(bytes);
}

TEST(LineaDefinicion, PositionsAreReadBeforeTheDateOfChange) {
    const LineaDefinicion l =
        LeerLineaDefinicion(QStringLiteral("OBRA/C/4/Fecha/ftDateTime/0/*|01/02/2026"));
    EXPECT_EQ(l.tabla, u"OBRA");
    EXPECT_EQ(l.clase, u"C");
    EXPECT_EQ(l.orden, u"4");
    EXPECT_EQ(l.nombre, u"Fecha");
    EXPECT_EQ(l.tipo, u"ftDateTime");
    EXPECT_EQ(l.longitud, u"0");
    EXPECT_EQ(l.marca, u"*");
    EXPECT_EQ(l.fecha, u"01/02/2026");
    EXPECT_TRUE(l.esClave());
    // A trailing "/" after the mark, or after an empty one, means nothing.
    EXPECT_TRUE(LeerLineaDefinicion(QStringLiteral("/C/1/NumeroFactura/ftInteger/0/*/")).esClave());
    EXPECT_FALSE(LeerLineaDefinicion(QStringLiteral("/C/4/CodigoCapitulo/ftInteger/0/")).esClave());
    EXPECT_FALSE(LeerLineaDefinicion(QStringLiteral("T/C/1000/Zona/ftString/20/NO")).esClave());
    const LineaDefinicion i =
        LeerLineaDefinicion(QStringLiteral("OBRA/I/2/Clave2/CodigoCliente;Codigo/-"));
    EXPECT_TRUE(i.esIndice());
    EXPECT_EQ(i.tipo, u"CodigoCliente;Codigo");
    EXPECT_EQ(i.longitud, u"-");
}

TEST(DefinicionTemporal, FirstLineNamesTheNumber) {
    EXPECT_EQ(NumeroTablaTemporal(QStringLiteral("Tabla Temporal\r\n/C/1/C/ftInteger/0/*")), 0);
    EXPECT_EQ(NumeroTablaTemporal(QStringLiteral("Tabla Temporal 2\r\n/C/1/C/ftInteger/0/*")), 2);
    EXPECT_EQ(NumeroTablaTemporal(QStringLiteral("Tabla Temporales\r\n/C/1/C/ftInteger/0/*")), -1);
    EXPECT_EQ(NumeroTablaTemporal(QStringLiteral("OBRA/C/1/Codigo/ftInteger/0/*")), -1);
    EXPECT_TRUE(EsDefinicionTemporal(QStringLiteral("Tabla Temporal 1\n/C/1/C/ftInteger/0/*")));
    // All the lines after the first have an empty table position.
    const QString def =
        QStringLiteral("Tabla Temporal 1\r\n/C/1/CodigoTemporal/ftInteger/0/*\r\n"
                       "/C/2/Linea/ftSmallint/0/*\r\n/I/1/<Primary>/CodigoTemporal;Linea");
    EXPECT_EQ(DefinicionTabla({}, def, QStringLiteral("Campos")),
              lineas({"/C/1/CodigoTemporal/ftInteger/0/*", "/C/2/Linea/ftSmallint/0/*"}));
    EXPECT_EQ(DefinicionTabla({}, def, QStringLiteral("Indices")),
              lineas({"/I/1/<Primary>/CodigoTemporal;Linea"}));
}

class DefinicionDeTabla : public ::testing::Test {
protected:
    const QString texto = lineas({"A/C/1/Codigo/ftInteger/0/*", "A/I/1/<Primary>/Codigo",
                                  "OBRA/C/1/Codigo/ftInteger/0/*", "OBRA/C/2/Nombre/ftString/40/",
                                  "OBRA/I/1/<Primary>/Codigo", "OBRA/I/2/Clave2/Nombre",
                                  "OBRA/SQL/1/UPDATE OBRA SET Nombre = ''",
                                  "Z/C/1/Codigo/ftInteger/0/*", "OBRA/C/9/Tarde/ftString/10/"});
};

TEST_F(DefinicionDeTabla, PartsComeInTheirOrderAndAllWhenEmpty) {
    const QString campos =
        lineas({"OBRA/C/1/Codigo/ftInteger/0/*", "OBRA/C/2/Nombre/ftString/40/"});
    const QString indices = lineas({"OBRA/I/1/<Primary>/Codigo", "OBRA/I/2/Clave2/Nombre"});
    const QString sql = lineas({"OBRA/SQL/1/UPDATE OBRA SET Nombre = ''"});
    EXPECT_EQ(DefinicionTabla(QStringLiteral("OBRA"), texto, QStringLiteral("Campos")), campos);
    EXPECT_EQ(DefinicionTabla(QStringLiteral("OBRA"), texto, QStringLiteral("SQL,Indices")),
              indices + sql);
    EXPECT_EQ(DefinicionTabla(QStringLiteral("OBRA"), texto), campos + indices + sql);
    // "CamposUsuario" is a part of its own, not the fields of the file.
    EXPECT_EQ(DefinicionTabla(QStringLiteral("OBRA"), texto, QStringLiteral("CamposUsuario")),
              QString());
}

TEST_F(DefinicionDeTabla, ScanStopsAtTheFirstGroupAndIgnoresCase) {
    // The stray line after table Z is not part of OBRA.
    EXPECT_FALSE(DefinicionTabla(QStringLiteral("obra"), texto).contains(QStringLiteral("Tarde")));
    EXPECT_EQ(DefinicionTabla(QStringLiteral("obra"), texto, QStringLiteral("Campos")),
              DefinicionTabla(QStringLiteral("OBRA"), texto, QStringLiteral("Campos")));
    EXPECT_EQ(DefinicionTabla(QStringLiteral("NOHAY"), texto), QString());
}

TEST(MezclarEstructuras, NewDefinitionsReplaceTheBaseOne) {
    const QString base = lineas({"OBRA/C/1/Codigo/ftInteger/0/*", "OBRA/C/2/Nombre/ftString/40/",
                                 "CLIENTE/C/1/Codigo/ftInteger/0/*"});
    const QString adiciones = lineas({"OBRA/C/1/Codigo/ftString/10/*", "",
                                      "OBRA/C/2/Zona/ftString/5/", "NUEVA/C/1/Clave/ftString/4/*"});
    const QString mezcla = MezclarEstructuras(base, adiciones);
    EXPECT_EQ(DefinicionTabla(QStringLiteral("OBRA"), mezcla, QStringLiteral("Campos")),
              lineas({"OBRA/C/1/Codigo/ftString/10/*", "OBRA/C/2/Zona/ftString/5/"}));
    EXPECT_EQ(DefinicionTabla(QStringLiteral("NUEVA"), mezcla, QStringLiteral("Campos")),
              lineas({"NUEVA/C/1/Clave/ftString/4/*"}));
    EXPECT_EQ(DefinicionTabla(QStringLiteral("CLIENTE"), mezcla, QStringLiteral("Campos")),
              lineas({"CLIENTE/C/1/Codigo/ftInteger/0/*"}));
    EXPECT_FALSE(mezcla.contains(kCRLF + kCRLF + kCRLF));
}

TEST(MezclarEstructuras, ComplementaryDefinitionsAddFieldsAndIndexesBaseFirst) {
    const QString base = lineas({"OBRA/C/1/Codigo/ftInteger/0/*", "OBRA/C/2/Nombre/ftString/40/",
                                 "OBRA/I/1/<Primary>/Codigo", "CLIENTE/C/1/Codigo/ftInteger/0/*"});
    const QString adiciones = lineas(
        {"[Definiciones Complementarias]", "OBRA/C/100/Zona/ftString/20/", "OBRA/I/5/Zona/Zona", "",
         "", "[Definiciones Nuevas o Sustitutivas]", "OTRA/C/1/Codigo/ftInteger/0/*"});
    const QString mezcla = MezclarEstructuras(base, adiciones);
    EXPECT_EQ(DefinicionTabla(QStringLiteral("OBRA"), mezcla),
              lineas({"OBRA/C/1/Codigo/ftInteger/0/*", "OBRA/C/2/Nombre/ftString/40/",
                      "OBRA/C/100/Zona/ftString/20/", "OBRA/I/1/<Primary>/Codigo",
                      "OBRA/I/5/Zona/Zona"}));
    // The section switched back: OTRA is a new table, not a complement.
    EXPECT_EQ(DefinicionTabla(QStringLiteral("OTRA"), mezcla),
              lineas({"OTRA/C/1/Codigo/ftInteger/0/*"}));
    EXPECT_FALSE(mezcla.contains(kCRLF + kCRLF + kCRLF));
    // A complement of a table the base lacks is a table of its own.
    const QString sola = MezclarEstructuras(
        base, lineas({"[Definiciones Complementarias]", "X/C/1/A/ftInteger/0/*"}));
    EXPECT_EQ(DefinicionTabla(QStringLiteral("X"), sola), lineas({"X/C/1/A/ftInteger/0/*"}));
}

TEST(ListaTablas, OnlyDatedLinesSortedWithoutDuplicates) {
    const QString texto = lineas(
        {"OBRA/C/1/Codigo/ftInteger/0/*|02/01/2026", "OBRA/C/2/Nombre/ftString/40/|02/01/2026",
         "ALBARAN/C/1/Numero/ftInteger/0/*|05/03/2025", "SINFECHA/C/1/A/ftInteger/0/*",
         "VACIA/C/1/A/ftInteger/0/*|", "/C/1/Temporal/ftInteger/0/|01/01/2026"});
    EXPECT_EQ(ListaTablas(texto), (QStringList{QStringLiteral("ALBARAN"), QStringLiteral("OBRA")}));
    EXPECT_EQ(
        ListaTablas(texto, QStringLiteral("IncluirFecha")),
        (QStringList{QStringLiteral("ALBARAN|05/03/2025"), QStringLiteral("OBRA|02/01/2026")}));
}

TEST(EstructuraTabla, TypeWordsAndBothSmallIntegerSpellings) {
    QString motivo;
    const auto t = LeerEstructuraTabla(QStringLiteral("T"),
                                       lineas({"T/C/1/A/ftSmallint/0/*", "T/C/2/B/ftSmallInt/0/",
                                               "T/C/3/C/ftString/MAX/", "T/C/4/D/ftMemo/10/"}),
                                       {}, &motivo);
    ASSERT_TRUE(t) << motivo.toStdString();
    EXPECT_EQ(t->campos[0].tipo, TipoCampo::ftSmallint);
    EXPECT_EQ(t->campos[1].tipo, TipoCampo::ftSmallint);
    for (Backend b : {Backend::SQLite, Backend::PostgreSQL}) {
        const QString fecha = QStringLiteral("1899-12-30 00:00:00");
        EXPECT_EQ(kindOfDeclaredType(ColumnaSQL(t->campos[0], b, fecha).section(u' ', 1)),
                  ColumnKind::Integer);
        EXPECT_EQ(
            ColumnaSQL(t->campos[0], b, fecha).section(u' ', 1).remove(QStringLiteral(" NOT NULL")),
            ColumnaSQL(t->campos[1], b, fecha).section(u' ', 1));
        EXPECT_EQ(kindOfDeclaredType(ColumnaSQL(t->campos[2], b, fecha).section(u' ', 1, 1)),
                  ColumnKind::Text);
        EXPECT_EQ(kindOfDeclaredType(ColumnaSQL(t->campos[3], b, fecha).section(u' ', 1, 1)),
                  ColumnKind::Memo);
    }
    EXPECT_EQ(NombreATipoCampo(QStringLiteral("ftCadena")), TipoCampo::ftUnknown);
}

TEST(EstructuraTabla, FloatDecimalsFollowTheFieldName) {
    EXPECT_EQ(DecimalesCampo(QStringLiteral("Cambio")), 12);
    EXPECT_EQ(DecimalesCampo(QStringLiteral("CambioMoneda")), 8);
    EXPECT_EQ(DecimalesCampo(QStringLiteral("FactorConversionVenta")), 12);
    EXPECT_EQ(DecimalesCampo(QStringLiteral("UnFactor")), 12);
    EXPECT_EQ(DecimalesCampo(QStringLiteral("Importe")), 8);
    const CampoTabla cambio{
        QStringLiteral("Cambio"), QStringLiteral("ftFloat"), TipoCampo::ftFloat, {}, false};
    const CampoTabla otro{
        QStringLiteral("CambioMoneda"), QStringLiteral("ftFloat"), TipoCampo::ftFloat, {}, false};
    EXPECT_TRUE(ColumnaSQL(cambio, Backend::PostgreSQL, {}).contains(QStringLiteral("(28,12)")));
    EXPECT_TRUE(ColumnaSQL(otro, Backend::PostgreSQL, {}).contains(QStringLiteral("(28,8)")));
    for (Backend b : {Backend::SQLite, Backend::PostgreSQL})
        EXPECT_EQ(kindOfDeclaredType(ColumnaSQL(cambio, b, {}).section(u' ', 1)),
                  ColumnKind::Float);
}

TEST(EstructuraTabla, KeyFromMarksAndIndexesOtherThanPrimary) {
    QString motivo;
    const auto t = LeerEstructuraTabla(
        QStringLiteral("PARTE"),
        lineas({"PARTE/C/1/Obra/ftInteger/0/*", "PARTE/C/2/Fecha/ftDateTime/0/*",
                "PARTE/C/3/Notas/ftMemo/10/"}),
        lineas({"PARTE/I/1/<Primary>/Obra;Fecha", "PARTE/I/2/Clave2/Fecha;Obra"}), &motivo);
    ASSERT_TRUE(t) << motivo.toStdString();
    EXPECT_EQ(t->clave(), (QStringList{QStringLiteral("Obra"), QStringLiteral("Fecha")}));
    const SentenciasTabla s =
        SentenciasCreacion(*t, Backend::PostgreSQL, QStringLiteral("1899-12-30 00:00:00"));
    EXPECT_TRUE(
        s.crear.contains(QStringLiteral("CONSTRAINT PARTE_Clave1 PRIMARY KEY (Obra, Fecha)")));
    EXPECT_TRUE(s.crear.contains(QStringLiteral("DEFAULT '1899-12-30 00:00:00'")));
    EXPECT_EQ(s.indices,
              QStringList{QStringLiteral("CREATE INDEX PARTE_Clave2 ON PARTE (Fecha, Obra)")});
    // SQLite keeps midnight dates as a bare date.
    EXPECT_TRUE(SentenciasCreacion(*t, Backend::SQLite, QStringLiteral("1899-12-30 00:00:00"))
                    .crear.contains(QStringLiteral("DEFAULT '1899-12-30'")));

    const auto sinClave = LeerEstructuraTabla(QStringLiteral("LIBRE"),
                                              lineas({"LIBRE/C/1/A/ftString/4/"}), {}, &motivo);
    ASSERT_TRUE(sinClave);
    EXPECT_FALSE(SentenciasCreacion(*sinClave, Backend::SQLite, {})
                     .crear.contains(QStringLiteral("PRIMARY")));
}

TEST(EstructuraTabla, BadLinesAreToldInSpanish) {
    const struct {
        const char *campos;
        const char *indices;
        const char *motivo;
    } casos[] = {
        {"T/C/1/Codigo/ftEntero/0/*", "",
         "El campo Codigo de la tabla T tiene un tipo desconocido: \"ftEntero\"."},
        {"T/C/1/Codigo", "", "El campo Codigo de la tabla T tiene un tipo desconocido: \"\"."},
        {"T/C/1/Nombre/ftString/0/", "",
         "El campo Nombre de la tabla T tiene una longitud no válida: \"0\"."},
        {"T/C/1/Nombre/ftString/diez/", "",
         "El campo Nombre de la tabla T tiene una longitud no válida: \"diez\"."},
        {"T/C/7//ftString/10/", "", "La tabla T tiene un campo sin nombre (orden 7)."},
        {"T/C/1/Mi Campo/ftString/10/", "",
         "El nombre del campo \"Mi Campo\" de la tabla T no es válido."},
        {"T/C/1/A/ftInteger/0/*\r\nT/C/2/a/ftInteger/0/", "",
         "El campo a está repetido en la tabla T."},
        {"T/C/1/A/ftInteger/0/*", "T/I/2/Clave2/",
         "El índice Clave2 de la tabla T no tiene campos."},
        {"T/C/1/A/ftInteger/0/*", "T/I/2/Clave2/A;B",
         "El índice Clave2 de la tabla T usa el campo B, que no está definido."},
    };
    for (const auto &c : casos) {
        QString motivo;
        EXPECT_FALSE(LeerEstructuraTabla(QStringLiteral("T"), QString::fromUtf8(c.campos),
                                         QString::fromUtf8(c.indices), &motivo));
        EXPECT_EQ(motivo, QString::fromUtf8(c.motivo));
    }
    QString motivo;
    EXPECT_FALSE(LeerEstructuraTabla(QStringLiteral("T; DROP"),
                                     QStringLiteral("x/C/1/A/ftInteger/0/"), {}, &motivo));
    EXPECT_EQ(motivo, QStringLiteral("El nombre de la tabla \"T; DROP\" no es válido."));
}

class ArchivosEstructura : public ::testing::Test {
protected:
    QString general() const { return carpeta_.filePath(QStringLiteral("general")); }
    QString datos() const { return carpeta_.filePath(QStringLiteral("datos")); }
    void SetUp() override {
        ASSERT_TRUE(carpeta_.isValid());
        QDir().mkpath(general());
        QDir().mkpath(datos());
    }
    QTemporaryDir carpeta_;
};

TEST_F(ArchivosEstructura, BaseFileIsCopiedFromTheDataFolderOnlyWhenMissing) {
    escribir(QDir(datos()).filePath(QStringLiteral("DATABASE.TXT")),
             "OBRA/C/1/Codigo/ftInteger/0/*|01/01/2026\r\n");
    const QString ruta = RutaEstructuras(general(), datos());
    EXPECT_EQ(ruta, QDir(general()).filePath(QStringLiteral("DATABASE.TXT")));
    QString texto;
    ASSERT_TRUE(LeerArchivoEstructuras(ruta, &texto));
    EXPECT_EQ(ListaTablas(texto), QStringList{QStringLiteral("OBRA")});
    // The installation's own copy is never overwritten.
    escribir(ruta, "CLIENTE/C/1/Codigo/ftInteger/0/*|01/01/2026\r\n");
    RutaEstructuras(general(), datos());
    ASSERT_TRUE(LeerArchivoEstructuras(ruta, &texto));
    EXPECT_EQ(ListaTablas(texto), QStringList{QStringLiteral("CLIENTE")});
}

TEST_F(ArchivosEstructura, VersionAndCustomerFilesAreMergedAndListed) {
    const QString base = QDir(general()).filePath(QStringLiteral("DATABASE.TXT"));
    escribir(
        base,
        "OBRA/C/1/Codigo/ftInteger/0/*|01/01/2026\r\nEMPRESA/C/1/Codigo/ftInteger/0/*|01/01/2026");
    escribir(ArchivoHermano(base, QStringLiteral("VRT")),
             "NUEVA/C/1/Codigo/ftInteger/0/*|02/02/2026\r\n");
    // A customer file in the Windows code page.
    escribir(ArchivoHermano(base, QStringLiteral("ESP")),
             QByteArray("[Definiciones Complementarias]\r\nOBRA/C/50/A\xf1o/ftInteger/0/\r\n"));
    QString texto;
    ASSERT_TRUE(LeerEstructurasDe(base, &texto));
    EXPECT_EQ(DefinicionTabla(QStringLiteral("OBRA"), texto, QStringLiteral("Campos")),
              lineas({"OBRA/C/1/Codigo/ftInteger/0/*|01/01/2026", "OBRA/C/50/Año/ftInteger/0/"}));
    EXPECT_EQ(DefinicionTabla(QStringLiteral("NUEVA"), texto),
              lineas({"NUEVA/C/1/Codigo/ftInteger/0/*|02/02/2026"}));
    EXPECT_EQ(ListaTablasBD(base), (QStringList{QStringLiteral("EMPRESA"), QStringLiteral("NUEVA"),
                                                QStringLiteral("OBRA")}));
    EXPECT_EQ(ListaTablasBD(base, QStringLiteral("ExcluirTablasBDGeneral")),
              (QStringList{QStringLiteral("NUEVA"), QStringLiteral("OBRA")}));
}

TEST_F(ArchivosEstructura, MissingBaseFileIsAFailureAndMissingExtrasAreNot) {
    QString texto = QStringLiteral("sin tocar");
    EXPECT_FALSE(
        LeerEstructuras(QDir(general()).filePath(QStringLiteral("DATABASE.TXT")), {}, &texto));
    EXPECT_EQ(texto, QStringLiteral("sin tocar"));
    EXPECT_TRUE(ListaTablasBD(QDir(general()).filePath(QStringLiteral("DATABASE.TXT"))).isEmpty());
    const QString base = QDir(general()).filePath(QStringLiteral("DATABASE.TXT"));
    escribir(base, "OBRA/C/1/Codigo/ftInteger/0/*\r\n");
    ASSERT_TRUE(LeerEstructuras(base, ArchivoHermano(base, QStringLiteral("VRT")), &texto,
                                {ArchivoHermano(base, QStringLiteral("ESP"))}));
    EXPECT_EQ(DefinicionTabla(QStringLiteral("OBRA"), texto),
              lineas({"OBRA/C/1/Codigo/ftInteger/0/*"}));
}

TEST(DatabaseTxt, EveryTableIsListedAndReadsWithoutFault) {
    QString texto;
    ASSERT_TRUE(LeerArchivoEstructuras(QStringLiteral(CO_SOURCE_DIR "/data/DATABASE.TXT"), &texto));
    QStringList tablas;
    for (const QString &linea : LineasDefinicion(texto)) {
        const QString t = LeerLineaDefinicion(linea).tabla;
        if (!t.isEmpty() && !tablas.contains(t))
            tablas << t;
    }
    tablas.sort();
    // A table without a dated line would be missing from the table picker.
    EXPECT_EQ(ListaTablas(texto), tablas);
    for (const QString &t : std::as_const(tablas)) {
        QString motivo;
        EXPECT_TRUE(LeerEstructuraTabla(t, DefinicionTabla(t, texto, QStringLiteral("Campos")),
                                        DefinicionTabla(t, texto, QStringLiteral("Indices")),
                                        &motivo))
            << t.toStdString() << ": " << motivo.toStdString();
    }
}

} // namespace
} // namespace co
