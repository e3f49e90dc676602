// The INI file as a text file: reading values, and writing one key
// (`EscribirClaveINI`) without disturbing comments, order, encoding, line ends or
// lines it does not understand; refusals that lose nothing.
#include "core/ini_file.h"

#include "core/windows_codepage.h"
#include "support/layer_fixture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

class IniFileTest : public ::testing::Test {
protected:
    QString path(const QString &name = QStringLiteral("NAROWIN.INI")) const {
        return dir_.filePath(name);
    }
    void write(const QByteArray &bytes, const QString &name = QStringLiteral("NAROWIN.INI")) {
        QFile f(path(name));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(bytes);
    }
    QByteArray bytes(const QString &name = QStringLiteral("NAROWIN.INI")) const {
        QFile f(path(name));
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
    QByteArray latin(const QString &text) const { return encodeWindows1252(text).value(); }

    QTemporaryDir dir_;
};

const QString kSample = QStringLiteral("; Configuración de la instalación\r\n"
                                       "[Configuración]\r\n"
                                       "VisualizacionPreviaActivada = NO \r\n"
                                       "# comentario\r\n"
                                       "esto no es una clave\r\n"
                                       "ModoAdministradorActivado=SI\r\n"
                                       "\r\n"
                                       "[Microsoft SQL Server]\r\n"
                                       "NombreUsuarioInicioSesion=sa\r\n"
                                       "\r\n"
                                       "[Configuracion]\r\n"
                                       "Otra=1\r\n");

TEST_F(IniFileTest, ReadsTrimmedValuesWithoutCaseInNames) {
    write(kSample.toUtf8());
    const IniFile ini = IniFile::load(path());
    EXPECT_EQ(ini.status(), IniFile::Status::Ok);
    EXPECT_EQ(
        ini.value(QStringLiteral("configuración"), QStringLiteral("visualizacionpreviaactivada")),
        QStringLiteral("NO"));
    EXPECT_EQ(ini.value(QStringLiteral("Microsoft SQL Server"),
                        QStringLiteral("NombreUsuarioInicioSesion")),
              QStringLiteral("sa"));
    // A section without the accent is another section.
    EXPECT_EQ(ini.value(QStringLiteral("Configuración"), QStringLiteral("Otra")), std::nullopt);
    EXPECT_EQ(ini.value(QStringLiteral("Configuracion"), QStringLiteral("Otra")),
              QStringLiteral("1"));
    EXPECT_EQ(ini.keys(QStringLiteral("Configuración")),
              QStringList({QStringLiteral("VisualizacionPreviaActivada"),
                           QStringLiteral("ModoAdministradorActivado")}));
    EXPECT_EQ(ini.malformedLines(), QStringList({QStringLiteral("esto no es una clave")}));
}

TEST_F(IniFileTest, WindowsEncodedFileIsReadWithItsAccents) {
    write(latin(QStringLiteral("[Reconstrucción Automática de Tablas]\nTablas=AÑO,€\n")));
    const IniFile ini = IniFile::load(path());
    EXPECT_FALSE(ini.isUtf8());
    EXPECT_EQ(
        ini.value(QStringLiteral("Reconstrucción Automática de Tablas"), QStringLiteral("Tablas")),
        QStringLiteral("AÑO,€"));
}

TEST_F(IniFileTest, MissingAndUnreadableFilesAreToldApart) {
    EXPECT_EQ(IniFile::load(path(QStringLiteral("NOEXISTE.INI"))).status(),
              IniFile::Status::Missing);
    ASSERT_TRUE(QDir(dir_.path()).mkdir(QStringLiteral("CARPETA.INI")));
    const IniFile ini = IniFile::load(path(QStringLiteral("CARPETA.INI")));
    EXPECT_EQ(ini.status(), IniFile::Status::Unreadable);
    EXPECT_FALSE(ini.reason().isEmpty());
}

TEST_F(IniFileTest, RewritingAKeyKeepsEverythingElseByteForByte) {
    write(kSample.toUtf8());
    QString motivo;
    ASSERT_TRUE(EscribirClaveINI(path(), QStringLiteral("CONFIGURACIÓN"),
                                 QStringLiteral("visualizacionpreviaactivada"),
                                 QStringLiteral("SI"), &motivo))
        << motivo.toStdString();
    QString expected = kSample;
    expected.replace(QStringLiteral("VisualizacionPreviaActivada = NO "),
                     QStringLiteral("VisualizacionPreviaActivada = SI"));
    EXPECT_EQ(QString::fromUtf8(bytes()), expected);
}

TEST_F(IniFileTest, NewKeyGoesAtTheEndOfItsSectionBeforeTheBlankLine) {
    write(kSample.toUtf8());
    ASSERT_TRUE(EscribirClaveINI(path(), QStringLiteral("Configuración"),
                                 QStringLiteral("RetardoGrabacionPDF"), QStringLiteral("7")));
    QString expected = kSample;
    expected.replace(QStringLiteral("ModoAdministradorActivado=SI\r\n"),
                     QStringLiteral("ModoAdministradorActivado=SI\r\nRetardoGrabacionPDF=7\r\n"));
    EXPECT_EQ(QString::fromUtf8(bytes()), expected);
}

TEST_F(IniFileTest, NewSectionIsAddedAtTheEnd) {
    write(kSample.toUtf8());
    ASSERT_TRUE(EscribirClaveINI(path(), QStringLiteral("Reconstrucción Automática de Tablas"),
                                 QStringLiteral("Tablas"), QStringLiteral("CLIENTE,OBRA")));
    EXPECT_EQ(
        QString::fromUtf8(bytes()),
        kSample +
            QStringLiteral("\r\n[Reconstrucción Automática de Tablas]\r\nTablas=CLIENTE,OBRA\r\n"));
    const IniFile ini = IniFile::load(path());
    EXPECT_EQ(
        ini.value(QStringLiteral("Reconstrucción Automática de Tablas"), QStringLiteral("Tablas")),
        QStringLiteral("CLIENTE,OBRA"));
}

TEST_F(IniFileTest, MissingFileIsCreated) {
    ASSERT_TRUE(EscribirClaveINI(path(QStringLiteral("NUEVO.INI")), QStringLiteral("Configuración"),
                                 QStringLiteral("BDENetDir"), QStringLiteral("LOCAL")));
    EXPECT_EQ(QString::fromUtf8(bytes(QStringLiteral("NUEVO.INI"))),
              QStringLiteral("[Configuración]\nBDENetDir=LOCAL\n"));
}

TEST_F(IniFileTest, WindowsEncodingIsKeptOnWrite) {
    const QString text = QStringLiteral("[Configuración]\r\nA=1\r\n");
    write(latin(text));
    ASSERT_TRUE(EscribirClaveINI(path(), QStringLiteral("Configuración"), QStringLiteral("B"),
                                 QStringLiteral("Ñandú")));
    EXPECT_EQ(bytes(), latin(text + QStringLiteral("B=Ñandú\r\n")));
}

TEST_F(IniFileTest, ValueOutsideTheWindowsCodePageTurnsTheFileToUtf8WithoutLoss) {
    const QString text = QStringLiteral("[Configuración]\r\nA=señal\r\n");
    write(latin(text));
    ASSERT_TRUE(EscribirClaveINI(path(), QStringLiteral("Configuración"), QStringLiteral("B"),
                                 QStringLiteral("東京")));
    EXPECT_EQ(QString::fromUtf8(bytes()), text + QStringLiteral("B=東京\r\n"));
}

TEST_F(IniFileTest, ByteOrderMarkAndMissingFinalLineEndSurvive) {
    write(QByteArray("\xEF\xBB\xBF") + QStringLiteral("[Configuración]\nA=1").toUtf8());
    ASSERT_TRUE(EscribirClaveINI(path(), QStringLiteral("Configuración"), QStringLiteral("A"),
                                 QStringLiteral("2")));
    EXPECT_EQ(bytes(),
              QByteArray("\xEF\xBB\xBF") + QStringLiteral("[Configuración]\nA=2").toUtf8());
}

TEST_F(IniFileTest, RefusedWritesLeaveTheFileAlone) {
    write(kSample.toUtf8());
    const QByteArray before = bytes();
    QString motivo;
    EXPECT_FALSE(EscribirClaveINI(path(), QStringLiteral("Configuración"), QStringLiteral("Texto"),
                                  QStringLiteral("dos\r\nlíneas"), &motivo));
    EXPECT_TRUE(motivo.startsWith(
        QStringLiteral("No ha sido posible escribir la clave Texto en el archivo ")))
        << motivo.toStdString();
    EXPECT_FALSE(EscribirClaveINI(path(), QStringLiteral("Configuración"), QStringLiteral("a=b"),
                                  QStringLiteral("x")));
    EXPECT_FALSE(EscribirClaveINI(path(), QStringLiteral("[Mal]"), QStringLiteral("A"),
                                  QStringLiteral("x")));
    EXPECT_FALSE(EscribirClaveINI(path(), QString(), QStringLiteral("A"), QStringLiteral("x")));
    EXPECT_EQ(bytes(), before);
}

TEST_F(IniFileTest, UnreadableFileIsNeverOverwritten) {
    ASSERT_TRUE(QDir(dir_.path()).mkdir(QStringLiteral("CARPETA.INI")));
    QString motivo;
    EXPECT_FALSE(EscribirClaveINI(path(QStringLiteral("CARPETA.INI")),
                                  QStringLiteral("Configuración"), QStringLiteral("A"),
                                  QStringLiteral("1"), &motivo));
    EXPECT_TRUE(motivo.contains(QStringLiteral("no se puede leer"))) << motivo.toStdString();
    EXPECT_TRUE(QFileInfo(path(QStringLiteral("CARPETA.INI"))).isDir());
}

TEST_F(IniFileTest, FolderThatDoesNotExistIsReported) {
    QString motivo;
    EXPECT_FALSE(EscribirClaveINI(dir_.filePath(QStringLiteral("no/existe/NAROWIN.INI")),
                                  QStringLiteral("Configuración"), QStringLiteral("A"),
                                  QStringLiteral("1"), &motivo));
    EXPECT_TRUE(motivo.startsWith(QStringLiteral("No ha sido posible escribir la clave A")))
        << motivo.toStdString();
}

} // namespace
} // namespace co
