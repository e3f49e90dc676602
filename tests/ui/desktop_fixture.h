#pragma once
// A desktop session against a fresh installation on each back-end: the
// installation is made by the command line program, dialogs are answered by
// the test's scripted messages.
#include "ui/desktop_session.h"

#include "ui/form_view.h"

#include "support/cli_installation.h"

#include <QAction>
#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>
#include <memory>

namespace co::ui::test {

class DesktopTest : public co::test::CliInstallationTest {
protected:
    void TearDown() override {
        session_.reset(); // the session goes before its installation
        CliInstallationTest::TearDown();
    }
    // Starts `session_`; the messages of the start-up are cleared. Call through
    // ASSERT_NO_FATAL_FAILURE.
    void arrancar(const OpcionesArranque &o) {
        session_ = std::make_unique<DesktopSession>(o, &port_);
        ASSERT_TRUE(session_->Arrancar()) << port_.texts().join(u'\n').toStdString();
        port_.clear();
    }
    OpcionesArranque opciones(const QString &usuario) {
        OpcionesArranque o;
        o.carpetaInstalacion = o.carpetaAplicacion = dir_.path();
        o.carpetaDatos = co::test::kCarpetaDatos;
        o.linea.ParametroUsuario = usuario;
        return o;
    }
    // Opens the menu entry named `entrada` as a user would and maximises its
    // window; nullptr when no screen opened.
    FormView *abrirMaximizada(const QString &entrada) {
        session_->ventana()->accion(entrada)->trigger();
        QMdiSubWindow *w = session_->ventana()->mdi()->activeSubWindow();
        if (!w)
            return nullptr;
        w->showMaximized();
        return dynamic_cast<FormView *>(w->widget());
    }
    // Starts the program as `control-obras --abrir <programa>` does, as user
    // ADMIN; the window of the screen opened, or nullptr.
    FormView *arrancarEn(const QString &programa) {
        session_ = std::make_unique<DesktopSession>(opciones(QStringLiteral("ADMIN")), &port_);
        session_->AbrirAlArrancar(programa);
        EXPECT_TRUE(session_->Arrancar()) << port_.texts().join(u'\n').toStdString();
        port_.clear();
        if (!session_->ventana())
            return nullptr;
        session_->ventana()->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(session_->ventana()));
        return activa();
    }
    // The screen of the active window.
    FormView *activa() const {
        QMdiSubWindow *w = session_->ventana()->mdi()->activeSubWindow();
        return w ? dynamic_cast<FormView *>(w->widget()) : nullptr;
    }
    // A statement's result on the company's database.
    QString valor(const QString &sql) { return session_->aplicacion().datos().EjecutarSQL(sql); }
    // The main window as a picture in CO_SCREENSHOT_DIR, when it is set.
    void guardarCaptura(const QString &nombre) {
        const QString dir = qEnvironmentVariable("CO_SCREENSHOT_DIR");
        if (!dir.isEmpty()) {
            EXPECT_TRUE(session_->ventana()->grab().save(QDir(dir).filePath(nombre)));
        }
    }
    ScriptedMessages port_;
    std::unique_ptr<DesktopSession> session_;
};

} // namespace co::ui::test
