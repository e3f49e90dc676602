// Ctrl+A on a record of a work window shows who did what to it, from the
// access log another program of the suite writes, when the INI file turns the
// history on; with it off the key does nothing of the kind.
#include "desktop_fixture.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QHeaderView>
#include <QTableWidget>
#include <QTest>
#include <QTimer>

namespace co::ui {
namespace {

class AccessHistory : public test::DesktopTest {
protected:
    void iniciar(bool historial) {
        QFile ini(dir_.filePath(QStringLiteral("NAROWIN.INI")));
        ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
        ini.write(historial ? "[Configuración]\nRegistroAccesosActivado=SI\n"
                            : "[Configuración]\nRegistroAccesosActivado=NO\n");
        ini.close();
        ASSERT_NO_FATAL_FAILURE(arrancar(opciones(QStringLiteral("ADMIN"))));
        TModuloDatos &datos = session_->aplicacion().datos();
        for (const QString &sql :
             {QStringLiteral("INSERT INTO UNIDADOB (Codigo, Descripcion) VALUES ('KG', 'Kilogramo')"),
              QStringLiteral("INSERT INTO UNIDADOB (Codigo, Descripcion) VALUES ('M2', 'Metro cuadrado')"),
              QStringLiteral("INSERT INTO REGACCES (NombreTabla, ClaveTabla, CodigoUsuario, Fecha, Accion, Datos) "
                             "VALUES ('UNIDADOB', 'KG|', 'ANA', '2026-03-02 09:15:00', 'Alta', 'Kilogramo')"),
              QStringLiteral("INSERT INTO REGACCES (NombreTabla, ClaveTabla, CodigoUsuario, Fecha, Accion, Datos) "
                             "VALUES ('UNIDADOB', 'KG', 'LUIS', '2026-05-11 17:40:00', 'Modificacion', "
                             "'Descripcion|Kilo')"),
              QStringLiteral("INSERT INTO REGACCES (NombreTabla, ClaveTabla, CodigoUsuario, Fecha, Accion, Datos) "
                             "VALUES ('UNIDADOB', 'M2|', 'ANA', '2026-04-01 08:00:00', 'Alta', 'Metro')")}) {
            const QString r = datos.EjecutarSQL(sql, datos.BaseDatosDeTabla(
                                                         sql.section(u' ', 2, 2)));
            ASSERT_FALSE(r.startsWith(QStringLiteral("Error"))) << r.toStdString();
        }
        FormView *vista = abrirMaximizada(QStringLiteral("MaestrodeUnidades1"));
        ASSERT_NE(vista, nullptr) << port_.texts().join(u'\n').toStdString();
        grid_ = vista->grid(QStringLiteral("DBGrid1"));
        grid_->setFocus();
        QTest::keyClick(grid_, Qt::Key_Home, Qt::ControlModifier); // the first record, KG
    }
    // Ctrl+A on the grid; what the list window showed, row by row.
    QStringList historial(QString *titulo) {
        QStringList filas;
        QTimer::singleShot(0, [&] {
            auto *d = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            if (!d)
                return;
            *titulo = d->windowTitle();
            auto *tabla = d->findChild<QTableWidget *>(QStringLiteral("DBGrid1"));
            for (int r = 0; tabla && r < tabla->rowCount(); ++r) {
                QStringList campos;
                for (int c = 0; c < tabla->columnCount(); ++c)
                    campos << tabla->item(r, c)->text();
                filas << campos.join(u'|');
            }
            QTest::keyClick(tabla ? static_cast<QWidget *>(tabla) : d, Qt::Key_Escape);
        });
        QTest::keyClick(grid_, Qt::Key_A, Qt::ControlModifier);
        return filas;
    }
    QTableView *grid_ = nullptr;
};

TEST_P(AccessHistory, CtrlAListsTheRecordsAccessesNewestFirst) {
    ASSERT_NO_FATAL_FAILURE(iniciar(true));
    QString titulo;
    const QStringList filas = historial(&titulo);
    EXPECT_EQ(titulo, QStringLiteral("Historial de Accesos al Registro: UNIDADOB - KG|"));
    ASSERT_EQ(filas.size(), 2) << filas.join(u'\n').toStdString();
    // Stored with or without the last separator, both are the record's.
    EXPECT_TRUE(filas[0].startsWith(QStringLiteral("LUIS|"))) << filas[0].toStdString();
    EXPECT_TRUE(filas[0].endsWith(QStringLiteral("|Modificacion|Descripcion·Kilo")))
        << filas[0].toStdString();
    EXPECT_TRUE(filas[1].startsWith(QStringLiteral("ANA|"))) << filas[1].toStdString();
    EXPECT_TRUE(port_.texts().isEmpty()) << port_.texts().join(u'\n').toStdString();
}

TEST_P(AccessHistory, WithTheHistoryOffCtrlAOpensNothing) {
    ASSERT_NO_FATAL_FAILURE(iniciar(false));
    QString titulo;
    EXPECT_TRUE(historial(&titulo).isEmpty());
    EXPECT_TRUE(titulo.isEmpty()) << titulo.toStdString();
}

CO_ON_BOTH_BACKENDS(AccessHistory);

} // namespace
} // namespace co::ui
