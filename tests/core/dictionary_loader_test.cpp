// Loading a dictionary file into IDIOMA and TXIDIOMA on both back-ends: the
// shipped English dictionary, idempotent reloads, and files refused whole.
#include "core/dictionary_loader.h"
#include "core/translation.h"

#include "support/layer_fixture.h"

#include <QFile>
#include <gtest/gtest.h>

namespace co {
namespace {

const QString kIngles = QStringLiteral("Ingles");
const QString kGeneral = QStringLiteral("DatabaseGeneral");
const QString kShipped = QStringLiteral(CO_SOURCE_DIR "/data/IDIOMA_Ingles.txt");

class DictionaryLoader : public test::TablesOnDemandTest {
protected:
    QString write(const QByteArray &content) {
        const QString path = dir_.filePath(QStringLiteral("diccionario%1.txt").arg(++files_));
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(content);
        return path;
    }
    int pairsIn(const QString &idioma) {
        return general(QStringLiteral("SELECT COUNT(*) FROM TXIDIOMA WHERE Idioma = %1")
                           .arg(Entrecomillar(idioma)))
            .toInt();
    }

    int files_ = 0;
};

// Pairs of the shipped file, counted from the file itself.
int shippedPairs() {
    QFile f(kShipped);
    EXPECT_TRUE(f.open(QIODevice::ReadOnly));
    int n = 0;
    for (const QByteArray &line : f.readAll().split('\n'))
        n += line.contains('\t') && !line.startsWith('#') ? 1 : 0;
    return n;
}

TEST_P(DictionaryLoader, ShippedEnglishDictionaryLoadsOnceAndTranslates) {
    QString motivo;
    ASSERT_TRUE(CargarDiccionario(*datos_, kIngles, kShipped, &motivo)) << motivo.toStdString();
    ASSERT_TRUE(CargarDiccionario(*datos_, kIngles, kShipped, &motivo)) << motivo.toStdString();
    EXPECT_GT(shippedPairs(), 100);
    EXPECT_EQ(pairsIn(kIngles), shippedPairs());
    EXPECT_EQ(general(QStringLiteral("SELECT Codigo FROM IDIOMA")), kIngles);

    Translator t(*datos_, kIngles);
    for (const char *titulo : {"Información", "Advertencia", "Error", "Confirmar", "Pregunta"})
        EXPECT_NE(t.TraducirTexto(QString::fromUtf8(titulo)), QString()) << titulo;
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Información")), QStringLiteral("Information"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("&Maestro de Obras")), QStringLiteral("Works Master"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Introducción de Partes de Máquina")),
              QStringLiteral("Machine Report Entry"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("¡ Ya existe el registro !")),
              QStringLiteral("The record already exists!"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("¡ Debe introducir un valor en el campo 'Codigo'  !")),
              QStringLiteral("You must enter a value in the field 'Codigo'!"));
    EXPECT_EQ(t.TraducirTexto(QStringLiteral("Factura 123")), QStringLiteral("Invoice 123"));
}

TEST_P(DictionaryLoader, ReloadTakesTheNewTranslationsAndKeepsOtherTexts) {
    QString motivo;
    ASSERT_TRUE(
        CargarDiccionario(*datos_, kIngles, write("Hola\tHello\nL'obra\tThe works\n"), &motivo))
        << motivo.toStdString();
    ASSERT_TRUE(
        CargarDiccionario(*datos_, QStringLiteral("Frances"), write("Hola\tBonjour\n"), &motivo));
    ASSERT_TRUE(
        CargarDiccionario(*datos_, kIngles, write("# otra vez\r\n\r\nHola\tHi\r\n"), &motivo))
        << motivo.toStdString();
    EXPECT_EQ(pairsIn(kIngles), 2);
    EXPECT_EQ(general(QStringLiteral(
                  "SELECT Texto FROM TXIDIOMA WHERE Idioma = 'Ingles' ORDER BY ClaveTexto")),
              QStringLiteral("Hi\r\nThe works"));
    EXPECT_EQ(general(QStringLiteral("SELECT Texto FROM TXIDIOMA WHERE Idioma = 'Frances'")),
              QStringLiteral("Bonjour"));
    EXPECT_EQ(general(QStringLiteral("SELECT Codigo FROM IDIOMA ORDER BY Codigo")),
              QStringLiteral("Frances\r\nIngles"));
}

TEST_P(DictionaryLoader, BadFilesAreRefusedWholeWithTheLineNamed) {
    QString motivo;
    ASSERT_TRUE(CargarDiccionario(*datos_, kIngles, write("Hola\tHello\n"), &motivo));
    const QString sinTab = write("Adiós\tGoodbye\n# nota\nGracias Thanks\n");
    EXPECT_FALSE(CargarDiccionario(*datos_, kIngles, sinTab, &motivo));
    EXPECT_EQ(motivo, QStringLiteral("La línea 3 del archivo %1 no tiene el texto y su traducción "
                                     "separados por un tabulador.")
                          .arg(sinTab));

    const QString repetido = write("Sí\tYes\nNo\tNo\nSí\tYeah\n");
    EXPECT_FALSE(CargarDiccionario(*datos_, kIngles, repetido, &motivo));
    EXPECT_EQ(
        motivo,
        QStringLiteral("La línea 3 del archivo %1 repite el texto de la línea 1.").arg(repetido));

    EXPECT_FALSE(CargarDiccionario(*datos_, kIngles, write("Vacío\t \n"), &motivo));
    EXPECT_TRUE(motivo.contains(QStringLiteral("vacío el texto o su traducción")))
        << motivo.toStdString();
    EXPECT_FALSE(
        CargarDiccionario(*datos_, kIngles, write(QByteArray(256, 'a') + "\tLong\n"), &motivo));
    EXPECT_TRUE(motivo.contains(QStringLiteral("más de 255 caracteres"))) << motivo.toStdString();
    EXPECT_FALSE(
        CargarDiccionario(*datos_, kIngles, write("Informaci\xf3n\tInformation\n"), &motivo));
    EXPECT_TRUE(motivo.contains(QStringLiteral("no está escrito en UTF-8")))
        << motivo.toStdString();
    EXPECT_FALSE(CargarDiccionario(*datos_, kIngles, write("# solo notas\n\n"), &motivo));
    EXPECT_TRUE(motivo.contains(QStringLiteral("no contiene ninguna traducción")))
        << motivo.toStdString();
    EXPECT_FALSE(CargarDiccionario(*datos_, kIngles, dir_.filePath(QStringLiteral("no_existe.txt")),
                                   &motivo));
    EXPECT_TRUE(motivo.startsWith(QStringLiteral("No ha sido posible leer el archivo")))
        << motivo.toStdString();
    EXPECT_FALSE(CargarDiccionario(*datos_, {}, write("Hola\tHello\n"), &motivo));
    EXPECT_EQ(motivo, QStringLiteral("Debe indicar el idioma del diccionario."));
    EXPECT_FALSE(CargarDiccionario(*datos_, QString(21, u'x'), write("Hola\tHello\n"), &motivo));

    // Nothing of the refused files reached the tables.
    EXPECT_EQ(general(QStringLiteral("SELECT ClaveTexto, Texto FROM TXIDIOMA")),
              QStringLiteral("Hola|Hello"));
    EXPECT_EQ(general(QStringLiteral("SELECT Codigo FROM IDIOMA")), kIngles);
    EXPECT_TRUE(messages_.shown().isEmpty());
}

CO_ON_BOTH_BACKENDS(DictionaryLoader);

} // namespace
} // namespace co
