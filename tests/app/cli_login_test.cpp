// Logging in through control-obras-cli under hostile use, on both back-ends:
// bursts of processes guessing one user's password at once, runs with nobody
// to type a password, an environment that claims another identity, and blank
// user codes.
#include "support/cli_installation.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <vector>

namespace co {
namespace {

const QString kIncorrecta = QStringLiteral("¡La Clave de Acceso es incorrecta!");
const QString kRevocado = QStringLiteral("¡Su derecho de acceso ha sido revocado!");
const QString kSinClave = QStringLiteral("¡No se ha indicado la Clave de Acceso!");
const QString kSinCodigo = QStringLiteral("¡No se ha indicado el código de usuario!");

using test::CliRun;

CliRun finish(QProcess &p) {
    return test::TerminarProceso(p);
}

class CliLogin : public test::CliInstallationTest {
protected:
    void SetUp() override {
        CliInstallationTest::SetUp();
        if (HasFatalFailure())
            return;
        // EVA may enter company 1; her password is kept as a hash after her
        // first login, so that each check takes the time a real one takes.
        general(QStringLiteral("INSERT INTO USUARIO (Codigo, Nombre, Categoria, ClaveAcceso, "
                               "Empresas) VALUES ('EVA', 'Eva', 'Normal', 'secreta', '1')"));
        const CliRun first = asEva(QStringLiteral("secreta"));
        ASSERT_EQ(first.status, 0) << first.err.toStdString();
        ASSERT_TRUE(general(QStringLiteral("SELECT ClaveAcceso FROM USUARIO WHERE Codigo = 'EVA'"))
                        .startsWith(QStringLiteral("$argon2id$")));
    }
    // A started run of `command` on the installation; `env` replaces the
    // variables it names (an empty value removes one).
    std::unique_ptr<QProcess> start(const QStringList &command,
                                    const QList<std::pair<QString, QString>> &env) {
        auto p = std::make_unique<QProcess>();
        QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
        e.remove(QStringLiteral("CONTROL_OBRAS_CLAVE"));
        for (const auto &[name, value] : env) {
            if (value.isNull())
                e.remove(name);
            else
                e.insert(name, value);
        }
        p->setProcessEnvironment(e);
        p->start(QStringLiteral(CO_CLI_PATH),
                 QStringList{command.first(), QStringLiteral("--dir"), dir_.path()} +
                     command.mid(1));
        // Standard input is a pipe, never a terminal; close it at once.
        p->closeWriteChannel();
        return p;
    }
    CliRun run(const QStringList &command, const QList<std::pair<QString, QString>> &env) {
        return finish(*start(command, env));
    }
    QString general(const QString &sql) {
        const CliRun r = run({QStringLiteral("sql"), QStringLiteral("--conexion"),
                              QStringLiteral("DatabaseGeneral"), sql},
                             {});
        EXPECT_EQ(r.status, 0) << sql.toStdString() << '\n' << r.err.toStdString();
        return r.out;
    }
    std::unique_ptr<QProcess> startAsEva(const QString &password) {
        return start({QStringLiteral("programas"), QStringLiteral("U=EVA")},
                     {{QStringLiteral("CONTROL_OBRAS_CLAVE"), password}});
    }
    CliRun asEva(const QString &password) { return finish(*startAsEva(password)); }

    // EVA's failed-login counter; 0 when it was never written.
    int counter() {
        const QString block =
            general(QStringLiteral("SELECT Configuracion FROM USUARIO WHERE Codigo = 'EVA'"));
        const QRegularExpressionMatch m =
            QRegularExpression(QStringLiteral("ContadorAccesos=(\\d+)")).match(block);
        return m.hasMatch() ? m.captured(1).toInt() : 0;
    }

    // Starts all the runs before waiting for any.
    std::vector<CliRun> burst(const QStringList &passwords) {
        std::vector<std::unique_ptr<QProcess>> started;
        for (const QString &password : passwords)
            started.push_back(startAsEva(password));
        std::vector<CliRun> runs;
        for (auto &p : started)
            runs.push_back(finish(*p));
        return runs;
    }
};

struct Outcomes {
    int accepted = 0;
    int wrong = 0;
    int revoked = 0;
    int other = 0;
};

Outcomes outcomesOf(const std::vector<CliRun> &runs) {
    Outcomes o;
    for (const CliRun &r : runs) {
        if (r.status == 0)
            ++o.accepted;
        else if (r.err.contains(kIncorrecta) && !r.err.contains(kRevocado))
            ++o.wrong;
        else if (r.err.contains(kRevocado) && !r.err.contains(kIncorrecta))
            ++o.revoked;
        else
            ++o.other;
    }
    return o;
}

TEST_P(CliLogin, BurstOfWrongPasswordsCountsEachUpToTheLockOut) {
    const std::vector<CliRun> two = burst({QStringLiteral("mala1"), QStringLiteral("mala2")});
    Outcomes o = outcomesOf(two);
    EXPECT_EQ(o.wrong, 2);
    EXPECT_EQ(counter(), 2);

    general(QStringLiteral("UPDATE USUARIO SET Configuracion = '' WHERE Codigo = 'EVA'"));
    const std::vector<CliRun> five(burst(QStringList(5, QStringLiteral("mala"))));
    o = outcomesOf(five);
    // Three are checked and counted, the rest find the user locked out.
    EXPECT_EQ(o.wrong, 3);
    EXPECT_EQ(o.revoked, 2);
    EXPECT_EQ(o.other, 0);
    EXPECT_EQ(counter(), 3);
    EXPECT_EQ(asEva(QStringLiteral("secreta")).status, 1);
}

TEST_P(CliLogin, RightPasswordInsideABurstOfWrongOnesOnlyOpensBeforeTheLockOut) {
    QStringList passwords(8, QStringLiteral("mala"));
    passwords.insert(4, QStringLiteral("secreta"));
    const std::vector<CliRun> runs = burst(passwords);
    const Outcomes o = outcomesOf(runs);
    EXPECT_EQ(o.other, 0);
    EXPECT_EQ(o.accepted + o.wrong + o.revoked, 9);
    // Taken one at a time: the right one opens only while fewer than three
    // wrong ones were counted, and clears them; either way the wrong ones
    // after it count up to the lock-out and no further.
    if (o.accepted == 1) {
        EXPECT_GE(o.wrong, 3);
        EXPECT_LE(o.wrong, 5);
    } else {
        EXPECT_EQ(o.accepted, 0);
        EXPECT_EQ(o.wrong, 3);
        EXPECT_TRUE(runs[4].err.contains(kRevocado)) << runs[4].err.toStdString();
    }
    EXPECT_EQ(counter(), 3);
    EXPECT_EQ(asEva(QStringLiteral("secreta")).status, 1);
}

TEST_P(CliLogin, RunsWithNobodyToTypeThePasswordCountNothing) {
    for (int i = 0; i < 3; ++i) {
        const CliRun r = run({QStringLiteral("programas"), QStringLiteral("U=EVA")}, {});
        EXPECT_EQ(r.status, 1);
        EXPECT_TRUE(r.err.contains(kSinClave)) << r.err.toStdString();
        EXPECT_TRUE(r.err.contains(QStringLiteral("CONTROL_OBRAS_CLAVE")));
        EXPECT_FALSE(r.err.contains(kIncorrecta)) << r.err.toStdString();
        EXPECT_TRUE(r.out.isEmpty());
    }
    EXPECT_EQ(counter(), 0);
    EXPECT_EQ(asEva(QStringLiteral("secreta")).status, 0);
}

TEST_P(CliLogin, SystemLoginTakesTheProcessAccountNotTheEnvironment) {
    QProcess id;
    id.start(QStringLiteral("id"), {QStringLiteral("-un")});
    id.waitForFinished(10000);
    const QString account = QString::fromLocal8Bit(id.readAllStandardOutput()).trimmed();
    ASSERT_FALSE(account.isEmpty());
    ASSERT_NE(account.toUpper(), settings_.CodigoPrimerUsuario.toUpper());
    QFile ini(QDir(dir_.path()).filePath(QStringLiteral("NAROWIN.INI")));
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly));
    ini.write(QStringLiteral("[Configuración]\r\nAutenticacionWindows=SI\r\n").toUtf8());
    ini.close();
    const QString claimed = settings_.CodigoPrimerUsuario;
    const CliRun r = run({QStringLiteral("programas")}, {{QStringLiteral("USER"), claimed},
                                                         {QStringLiteral("LOGNAME"), claimed},
                                                         {QStringLiteral("USERNAME"), claimed}});
    EXPECT_FALSE(r.out.contains(QStringLiteral("(") + claimed + QStringLiteral(")")))
        << r.out.toStdString();
    // The real account enters as a new "Normal" user without companies.
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(r.err.contains(QStringLiteral("¡Ud.no tiene acceso a ninguna empresa!")))
        << r.err.toStdString();
    ASSERT_TRUE(ini.remove());
    EXPECT_EQ(general(QStringLiteral("SELECT Codigo, Categoria FROM USUARIO WHERE Codigo = '") +
                      account + QStringLiteral("'")),
              account + QStringLiteral("|Normal"));
}

TEST_P(CliLogin, BlankUserCodeIsToldAndNeverBecomesTheFirstUser) {
    const QList<QStringList> blanks = {
        {QStringLiteral("--usuario"), QStringLiteral("   ")},
        {QStringLiteral("--usuario"), QString()},
        {QStringLiteral("U=")},
        {QStringLiteral("u=\t ")},
    };
    for (const QStringList &blank : blanks) {
        for (const QString &command : {QStringLiteral("programas"), QStringLiteral("sql")}) {
            QStringList args = QStringList{command} + blank;
            if (command == u"sql")
                args << QStringLiteral("SELECT 1");
            const CliRun r = run(args, {});
            EXPECT_EQ(r.status, 1) << args.join(u' ').toStdString();
            EXPECT_TRUE(r.err.contains(kSinCodigo)) << r.err.toStdString();
            EXPECT_TRUE(r.out.isEmpty()) << r.out.toStdString();
        }
    }
    // A code with blanks around it is still the code.
    const CliRun padded =
        run({QStringLiteral("programas"), QStringLiteral("--usuario"), QStringLiteral("  EVA ")},
            {{QStringLiteral("CONTROL_OBRAS_CLAVE"), QStringLiteral("secreta")}});
    EXPECT_EQ(padded.status, 0) << padded.err.toStdString();
    EXPECT_TRUE(padded.out.contains(QStringLiteral("(EVA)"))) << padded.out.toStdString();
}

CO_ON_BOTH_BACKENDS(CliLogin);

} // namespace
} // namespace co
