// A bounded random driver for the reader of the table definition language: the
// definitions of DATABASE.TXT mutated at random (bytes, separators, lines,
// positions, type words, lengths, marks) and plain random bytes go through
// every reading step, the structure files included. Nothing may crash, hang
// or trip the sanitizers; what is read keeps its rules; a definition that
// cannot make a table says why, in Spanish, and leaves no table behind. The
// seed is fixed, so a failure comes back the same.
#include "core/table_definition.h"
#include "support/layer_fixture.h"
#include "support/schema_check.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <random>

namespace co {
namespace {

const QString kEstructuras = QStringLiteral(CO_SOURCE_DIR "/data/DATABASE.TXT");
const QString kCRLF = QStringLiteral("\r\n");

// Pieces a mutation puts in: the language's own separators and words, and
// characters that have broken readers before (quotes, NUL, non-ASCII).
const QStringList kPiezas = {
    QStringLiteral("/"),
    QStringLiteral("|"),
    QStringLiteral(";"),
    QStringLiteral("*"),
    QStringLiteral("\r\n"),
    QStringLiteral("\n"),
    QStringLiteral("\r"),
    QStringLiteral("-"),
    QStringLiteral("'"),
    QStringLiteral("\""),
    QStringLiteral(" "),
    QString(QChar(0)),
    QStringLiteral("ñ"),
    QStringLiteral("·"),
    QStringLiteral("<Primary>"),
    QStringLiteral("C"),
    QStringLiteral("I"),
    QStringLiteral("SQL"),
    QStringLiteral("NO"),
    QStringLiteral("MAX"),
    QStringLiteral("0"),
    QStringLiteral("-1"),
    QStringLiteral("99999999999"),
    QStringLiteral("2147483647"),
    QStringLiteral("ftString"),
    QStringLiteral("ftFloat"),
    QStringLiteral("ftMemo"),
    QStringLiteral("ftAutoInc"),
    QStringLiteral("ftUnknown"),
    QStringLiteral("ftGraphic"),
    QStringLiteral("Tabla Temporal"),
    QStringLiteral("[Definiciones Complementarias]"),
    QStringLiteral("[Definiciones Nuevas o Sustitutivas]"),
    QStringLiteral("x); DROP TABLE USUARIO; --"),
};

class Mutador {
public:
    explicit Mutador(quint64 semilla) : rng_(semilla) {}

    int entre(int desde, int hasta) {
        return std::uniform_int_distribution<int>(desde, hasta)(rng_);
    }
    template <typename T> const T &uno(const QList<T> &l) {
        return l.at(entre(0, static_cast<int>(l.size()) - 1));
    }

    QString bytesAlAzar(int maximo) {
        QByteArray b(entre(0, maximo), Qt::Uninitialized);
        for (char &c : b)
            c = static_cast<char>(entre(0, 255));
        return entre(0, 1) ? QString::fromUtf8(b) : QString::fromLatin1(b);
    }

    // One to six edits of `texto`.
    QString mutar(QString texto) {
        const int veces = entre(1, 6);
        for (int i = 0; i < veces; ++i) {
            QStringList lineas = texto.split(kCRLF);
            switch (entre(0, 9)) {
            case 0: // a character changed
                if (!texto.isEmpty())
                    texto[entre(0, static_cast<int>(texto.size()) - 1)] =
                        QChar(static_cast<char16_t>(entre(0, 0x2FF)));
                break;
            case 1: // a piece put in
                texto.insert(entre(0, static_cast<int>(texto.size())), uno(kPiezas));
                break;
            case 2: // a stretch taken out
                if (!texto.isEmpty()) {
                    const int desde = entre(0, static_cast<int>(texto.size()) - 1);
                    texto.remove(desde, entre(1, 40));
                }
                break;
            case 3: // a line repeated
                if (!lineas.isEmpty()) {
                    const int l = entre(0, static_cast<int>(lineas.size()) - 1);
                    lineas.insert(entre(0, static_cast<int>(lineas.size())), lineas.at(l));
                    texto = lineas.join(kCRLF);
                }
                break;
            case 4: // two lines swapped
                if (lineas.size() > 1) {
                    lineas.swapItemsAt(entre(0, static_cast<int>(lineas.size()) - 1),
                                       entre(0, static_cast<int>(lineas.size()) - 1));
                    texto = lineas.join(kCRLF);
                }
                break;
            case 5: // one position of a line replaced
                if (!lineas.isEmpty()) {
                    const int l = entre(0, static_cast<int>(lineas.size()) - 1);
                    QStringList p = lineas[l].split(u'/');
                    p[entre(0, static_cast<int>(p.size()) - 1)] =
                        entre(0, 2) ? uno(kPiezas) : bytesAlAzar(12);
                    lineas[l] = p.join(u'/');
                    texto = lineas.join(kCRLF);
                }
                break;
            case 6: // a line dropped
                if (!lineas.isEmpty()) {
                    lineas.removeAt(entre(0, static_cast<int>(lineas.size()) - 1));
                    texto = lineas.join(kCRLF);
                }
                break;
            case 7: // cut short
                texto.truncate(entre(0, static_cast<int>(texto.size())));
                break;
            case 8: // random bytes put in
                texto.insert(entre(0, static_cast<int>(texto.size())), bytesAlAzar(16));
                break;
            default: // a separator doubled or lost
                texto.replace(entre(0, 1) ? QStringLiteral("/") : QStringLiteral(";"),
                              entre(0, 1) ? QStringLiteral("//") : QString());
                break;
            }
        }
        return texto;
    }

private:
    std::mt19937_64 rng_;
};

// Each real table as its block of lines.
QStringList bloquesReales() {
    QString texto;
    EXPECT_TRUE(LeerArchivoEstructuras(kEstructuras, &texto));
    QStringList bloques;
    QStringList vistas;
    for (const QString &linea : LineasDefinicion(texto)) {
        const QString tabla = LeerLineaDefinicion(linea).tabla;
        if (!tabla.isEmpty() && !vistas.contains(tabla)) {
            vistas << tabla;
            bloques << DefinicionTabla(tabla, texto);
        }
    }
    return bloques;
}

// What every reading step must keep, whatever the text.
void leerTodo(const QString &tabla, const QString &texto, const QString &base) {
    const QStringList lineas = LineasDefinicion(texto);
    for (const char *parte : {"Campos", "Indices", "SQL"}) {
        const QString clase = QString::fromLatin1(parte) == u"Campos"    ? QStringLiteral("C")
                              : QString::fromLatin1(parte) == u"Indices" ? QStringLiteral("I")
                                                                         : QStringLiteral("SQL");
        const QString def = DefinicionTabla(tabla, texto, QLatin1String(parte));
        ASSERT_TRUE(def.isEmpty() || def.endsWith(kCRLF));
        for (const QString &linea : LineasDefinicion(def)) {
            const LineaDefinicion l = LeerLineaDefinicion(linea);
            ASSERT_EQ(l.tabla.toUpper(), tabla.toUpper()) << linea.toStdString();
            ASSERT_EQ(l.clase, clase) << linea.toStdString();
            ASSERT_TRUE(lineas.contains(linea)) << linea.toStdString();
        }
    }
    const QStringList lista = ListaTablas(texto, QStringLiteral("IncluirFecha"));
    QStringList ordenada = lista;
    ordenada.sort();
    ordenada.removeDuplicates();
    ASSERT_EQ(lista, ordenada);
    NumeroTablaTemporal(texto);
    MezclarEstructuras(base, texto);

    QString motivo;
    const std::optional<EstructuraTabla> e =
        LeerEstructuraTabla(tabla, DefinicionTabla(tabla, texto, QStringLiteral("Campos")),
                            DefinicionTabla(tabla, texto, QStringLiteral("Indices")), &motivo);
    if (!e) {
        // A refused definition says why, naming the table.
        ASSERT_FALSE(motivo.isEmpty());
        ASSERT_TRUE(motivo.contains(tabla)) << motivo.toStdString();
        return;
    }
    for (const CampoTabla &c : e->campos) {
        ASSERT_TRUE(EsIdentificadorValido(c.nombre)) << c.nombre.toStdString();
        ASSERT_NE(c.tipo, TipoCampo::ftUnknown);
    }
    for (const Backend b : {Backend::SQLite, Backend::PostgreSQL}) {
        const SentenciasTabla s = SentenciasCreacion(*e, b, QStringLiteral("1899-12-30 00:00:00"));
        // Only names that passed as identifiers reach a statement.
        const QStringList sentencias = QStringList(s.indices) << s.crear;
        for (const QString &sql : sentencias) {
            ASSERT_FALSE(sql.contains(u';')) << sql.toStdString();
            ASSERT_FALSE(sql.contains(QStringLiteral("--"))) << sql.toStdString();
            ASSERT_EQ(sql.count(u'('), sql.count(u')')) << sql.toStdString();
        }
    }
}

TEST(LectorDefiniciones, MutatedAndRandomDefinitionsAreReadSafely) {
    const QStringList bloques = bloquesReales();
    ASSERT_GT(bloques.size(), 50);
    QString base;
    ASSERT_TRUE(LeerArchivoEstructuras(kEstructuras, &base));
    Mutador m(0xC0DE0B5A);
    for (int i = 0; i < 2500; ++i) {
        const QString &bloque = m.uno(bloques);
        const QString tabla = LeerLineaDefinicion(LineasDefinicion(bloque).first()).tabla;
        const QString texto = i % 10 == 9 ? m.bytesAlAzar(600) : m.mutar(bloque);
        leerTodo(tabla, texto, base);
        if (HasFatalFailure()) {
            ADD_FAILURE() << "iteración " << i << ": " << texto.toStdString();
            return;
        }
    }
}

TEST(LectorDefiniciones, MutatedStructureFilesAreReadSafely) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QStringList bloques = bloquesReales();
    Mutador m(0x5EED0F11);
    const QString base = dir.filePath(QStringLiteral("DATABASE.TXT"));
    auto escribir = [](const QString &ruta, const QByteArray &bytes) {
        QFile f(ruta);
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(bytes);
    };
    for (int i = 0; i < 100; ++i) {
        QString texto;
        for (int b = 0; b < 5; ++b)
            texto += m.uno(bloques);
        // Files come as UTF-8, as the old code page, or as anything at all.
        const QByteArray bytes = i % 3 == 0   ? m.mutar(texto).toUtf8()
                                 : i % 3 == 1 ? m.mutar(texto).toLatin1()
                                              : m.bytesAlAzar(800).toUtf8();
        escribir(base, bytes);
        escribir(ArchivoHermano(base, QStringLiteral("VRT")), m.mutar(m.uno(bloques)).toUtf8());
        escribir(ArchivoHermano(base, QStringLiteral("ESP")),
                 (QStringLiteral("[Definiciones Complementarias]\r\n") + m.mutar(m.uno(bloques)) +
                  QStringLiteral("\r\n[Definiciones Nuevas o Sustitutivas]\r\n") +
                  m.mutar(m.uno(bloques)))
                     .toUtf8());
        QString leido;
        ASSERT_TRUE(LeerEstructurasDe(base, &leido));
        const QStringList tablas = ListaTablasBD(base, QStringLiteral("ExcluirTablasBDGeneral"));
        for (const QString &t : tablas)
            ASSERT_FALSE(EsTablaGeneral(t)) << t.toStdString();
        const QString tabla = LeerLineaDefinicion(LineasDefinicion(texto).first()).tabla;
        leerTodo(tabla, leido, leido);
        if (HasFatalFailure())
            return;
    }
}

// Mutated definitions handed to table creation on each back-end.
class CreacionDefinicionesMutadas : public test::TablesOnDemandTest {};

TEST_P(CreacionDefinicionesMutadas, EachIsMadeWholeOrRefusedWithAMessageAndNothingLeft) {
    // Company tables only, so that every one is looked for in one place.
    QStringList bloques;
    for (const QString &b : bloquesReales())
        if (!EsTablaGeneral(LeerLineaDefinicion(LineasDefinicion(b).first()).tabla))
            bloques << b;
    Mutador m(backend() == Backend::SQLite ? 0xF00D0001 : 0xF00D0002);
    int hechas = 0, rechazadas = 0;
    for (int i = 0; i < 60; ++i) {
        const QString bloque = m.uno(bloques);
        const QString tabla = LeerLineaDefinicion(LineasDefinicion(bloque).first()).tabla;
        // Every fourth one is a temporary definition made from the same lines.
        const bool temporal = i % 4 == 3;
        QString texto = m.mutar(bloque);
        QString nombre = tabla;
        if (temporal) {
            QStringList lineas;
            for (const QString &l : LineasDefinicion(texto))
                lineas << l.section(u'/', 1);
            texto = QStringLiteral("Tabla Temporal\r\n/") + lineas.join(QStringLiteral("\r\n/"));
            nombre = QStringLiteral("TEMP000001_fFUZZ");
        }
        messages_.clear();
        QString motivo;
        const bool creada = creador_->CrearTabla(nombre, {}, texto, &motivo);
        const QString conexion = temporal ? QStringLiteral("DatabaseGeneral") : QString();
        const bool esta =
            test::TablasEnBase(*datos_, conexion.isEmpty() ? QStringLiteral("Database") : conexion)
                .contains(nombre.toUpper());
        const std::string contexto = "iteración " + std::to_string(i) + ": " + texto.toStdString();
        if (creada) {
            ++hechas;
            EXPECT_TRUE(esta) << contexto;
            if (!temporal) {
                EXPECT_EQ(test::DefectosEsquema(*datos_, QStringLiteral("Database"), texto),
                          QStringList())
                    << contexto;
            }
        } else {
            ++rechazadas;
            EXPECT_FALSE(motivo.isEmpty()) << contexto;
            EXPECT_FALSE(messages_.shown().isEmpty()) << contexto;
            EXPECT_FALSE(esta) << contexto;
        }
        if (esta)
            datos_->EjecutarSQL(QStringLiteral("DROP TABLE ") + nombre, conexion,
                                QStringLiteral("Silenciosa,No Crear Tabla"));
        if (HasFailure())
            return;
    }
    // The driver reaches both outcomes.
    EXPECT_GT(hechas, 5);
    EXPECT_GT(rechazadas, 5);
}

CO_ON_BOTH_BACKENDS(CreacionDefinicionesMutadas);

} // namespace
} // namespace co
