// `IdentificarUsuario` on both back-ends: the prompts, unknown and empty codes,
// passwords in clear and hashed, the failure counter and the lock-out, other
// sessions changing the user while the password is typed, an unanswered
// prompt, profiles, the operating-system login and its identity, hostile text
// and records that cannot be saved.
#include "core/login.h"
#include "core/password_hash.h"
#include "core/users.h"

#include "user_fixture.h"

#include <QProcess>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <utility>
#include <vector>

namespace co {
namespace {

using test::kAna;

const QString kPideCodigo = QStringLiteral("Introduzca el Código de Usuario:");
const QString kPideClave = QStringLiteral("Introduzca la Clave de Acceso:");
const QString kNoDefinido = QStringLiteral("¡El usuario no está definido!");
const QString kIncorrecta = QStringLiteral("¡La Clave de Acceso es incorrecta!");
const QString kRevocado =
    QStringLiteral("¡Su derecho de acceso ha sido revocado!. Contacte con el administrador");
const QString kNoGrabada =
    QStringLiteral("¡Imposible grabar la configuración del usuario!. Motivo: ");

class Login : public test::UserTest {
protected:
    // One login answering the code prompt with `codigo` and, when given, the
    // password prompt with `clave`. An answer that no prompt takes would be left
    // for the next login, so give `clave` only when the password is asked.
    bool login(const QString &codigo, const std::optional<QString> &clave = std::nullopt) {
        messages_.clear();
        messages_.answer(codigo);
        if (clave)
            messages_.answer(*clave);
        QString code;
        const bool accepted = IdentificarUsuario(*datos_, code, opciones_, &sesionUsuario_);
        if (accepted)
            accepted_ = code;
        return accepted;
    }

    QString counter(const QString &codigo) {
        QString value;
        ValorUsuario(*datos_, codigo, QStringLiteral("ContadorAccesos"), value,
                     QStringLiteral("0"));
        return value;
    }

    void withPassword(const QString &codigo, const QString &clave,
                      const QString &categoria = QStringLiteral("Normal")) {
        addUser(codigo, categoria);
        ASSERT_TRUE(GuardarClaveAcceso(*datos_, codigo, clave));
    }

    OpcionesIdentificacion opciones_;
    SesionUsuario sesionUsuario_;
    QString accepted_;
};

TEST_P(Login, AcceptedUserBecomesTheSessionUserWithTheStoredSpelling) {
    withPassword(QStringLiteral("Ana.Garcia"), QStringLiteral("s3creta"));
    EXPECT_TRUE(login(QStringLiteral("ANA.GARCIA"), QStringLiteral("s3creta")));
    EXPECT_EQ(accepted_, QStringLiteral("Ana.Garcia"));
    EXPECT_EQ(sesion_->CodigoUsuario, QStringLiteral("Ana.Garcia"));
    EXPECT_EQ(sesionUsuario_.ClaveUsuario, QStringLiteral("s3creta"));
    EXPECT_EQ(messages_.texts(), QStringList({kPideCodigo, kPideClave}));
    EXPECT_EQ(messages_.shown().value(0).kind, u'P');
    EXPECT_EQ(messages_.shown().value(1).kind, u'P');
}

TEST_P(Login, ExactSpellingWinsOverAnotherCase) {
    addUser(kAna);
    addUser(QStringLiteral("ANA"));
    EXPECT_TRUE(login(QStringLiteral("ANA")));
    EXPECT_EQ(accepted_, QStringLiteral("ANA"));
    EXPECT_TRUE(login(kAna));
    EXPECT_EQ(accepted_, kAna);
}

TEST_P(Login, ProposedCodeIsTheArgumentOrElseTheSystemUser) {
    addUser(QStringLiteral("jefe"));
    addUser(QStringLiteral("sistema"));
    opciones_.UsuarioSistema = QStringLiteral("sistema");
    opciones_.ParametroUsuario = QStringLiteral("jefe");
    QString code;
    messages_.clear();
    // No answer queued: the prompt gives back what it proposed.
    EXPECT_TRUE(IdentificarUsuario(*datos_, code, opciones_));
    EXPECT_EQ(code, QStringLiteral("jefe"));
    opciones_.ParametroUsuario.clear();
    EXPECT_TRUE(IdentificarUsuario(*datos_, code, opciones_));
    EXPECT_EQ(code, QStringLiteral("sistema"));
}

TEST_P(Login, EmptyAnswerRefusesWithoutAMessage) {
    addUser(kAna);
    sesion_->CodigoUsuario = QStringLiteral("antes");
    EXPECT_FALSE(login(QString()));
    EXPECT_FALSE(login(QStringLiteral("   ")));
    EXPECT_EQ(messages_.texts(), QStringList({kPideCodigo}));
    EXPECT_EQ(sesion_->CodigoUsuario, QStringLiteral("antes"));
}

TEST_P(Login, UnknownUserIsWarnedAndRefused) {
    addUser(kAna);
    EXPECT_FALSE(login(QStringLiteral("anabel")));
    EXPECT_EQ(messages_.texts(), QStringList({kPideCodigo, kNoDefinido}));
    EXPECT_EQ(messages_.shown().value(1).kind, u'A');
    EXPECT_TRUE(sesion_->CodigoUsuario.isEmpty());
    // Pattern characters and overlong or broken codes match nothing either.
    EXPECT_FALSE(login(QString(300, u'a')));
    EXPECT_FALSE(login(QStringLiteral("ana%")));
    EXPECT_FALSE(login(QStringLiteral("an_")));
    EXPECT_FALSE(login(kAna + QChar(0)));
    EXPECT_EQ(messages_.texts().last(), kNoDefinido);
}

TEST_P(Login, UserWithoutPasswordIsNeverAsked) {
    addUser(QStringLiteral("libre"));
    EXPECT_TRUE(login(QStringLiteral("libre")));
    EXPECT_EQ(messages_.texts(), QStringList({kPideCodigo}));
    EXPECT_TRUE(sesionUsuario_.ClaveUsuario.isEmpty());
}

TEST_P(Login, WrongPasswordCountsAndRefuses) {
    withPassword(kAna, QStringLiteral("buena"));
    EXPECT_FALSE(login(kAna, QStringLiteral("mala")));
    EXPECT_EQ(messages_.texts(), QStringList({kPideCodigo, kPideClave, kIncorrecta}));
    EXPECT_EQ(messages_.shown().value(2).kind, u'A');
    EXPECT_EQ(counter(kAna), QStringLiteral("1"));
    EXPECT_FALSE(login(kAna, QStringLiteral("BUENA")));
    EXPECT_EQ(counter(kAna), QStringLiteral("2"));
    EXPECT_TRUE(sesion_->CodigoUsuario.isEmpty());
}

TEST_P(Login, RightPasswordAfterTwoWrongOnesClearsTheCounter) {
    withPassword(kAna, QStringLiteral("buena"));
    EXPECT_FALSE(login(kAna, QStringLiteral("mala")));
    EXPECT_FALSE(login(kAna, QStringLiteral("peor")));
    EXPECT_TRUE(login(kAna, QStringLiteral("buena")));
    EXPECT_EQ(counter(kAna), QStringLiteral("0"));
    // Two more wrong ones do not lock: the count starts again.
    EXPECT_FALSE(login(kAna, QStringLiteral("mala")));
    EXPECT_FALSE(login(kAna, QStringLiteral("mala")));
    EXPECT_TRUE(login(kAna, QStringLiteral("buena")));
}

TEST_P(Login, ThirdWrongPasswordLocksTheUserOut) {
    withPassword(kAna, QStringLiteral("buena"));
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(login(kAna, QStringLiteral("mala")));
    // The password is not even asked for.
    EXPECT_FALSE(login(kAna));
    EXPECT_EQ(messages_.texts(), QStringList({kPideCodigo, kRevocado}));
    EXPECT_EQ(counter(kAna), QStringLiteral("3"));
    // Clearing the counter gives access back.
    ASSERT_TRUE(
        GuardarValorUsuario(*datos_, kAna, QStringLiteral("ContadorAccesos"), QStringLiteral("0")));
    EXPECT_TRUE(login(kAna, QStringLiteral("buena")));
}

TEST_P(Login, CounterKeepsTheRestOfTheUserSettings) {
    addUser(kAna, QStringLiteral("Normal"), {},
            QStringLiteral("VisualizacionPrevia=NO\r\nContadorAccesos=2\r\nIndicesBusqueda=a=b"));
    ASSERT_TRUE(GuardarClaveAcceso(*datos_, kAna, QStringLiteral("buena")));
    EXPECT_TRUE(login(kAna, QStringLiteral("buena")));
    EXPECT_EQ(user(kAna).Configuracion,
              QStringLiteral("VisualizacionPrevia=NO\r\nContadorAccesos=0\r\nIndicesBusqueda=a=b"));
}

TEST_P(Login, UnreadableCounterCountsAsZero) {
    withPassword(kAna, QStringLiteral("buena"));
    ASSERT_TRUE(GuardarValorUsuario(*datos_, kAna, QStringLiteral("ContadorAccesos"),
                                    QStringLiteral("muchos")));
    EXPECT_FALSE(login(kAna, QStringLiteral("mala")));
    EXPECT_EQ(counter(kAna), QStringLiteral("1"));
}

TEST_P(Login, CounterBeyondAnyNumberStillLocksAndANegativeOneCountsAsZero) {
    withPassword(kAna, QStringLiteral("buena"));
    setField(kAna, QStringLiteral("Configuracion"),
             QStringLiteral("ContadorAccesos=99999999999999999999"));
    EXPECT_FALSE(login(kAna));
    EXPECT_EQ(messages_.texts(), QStringList({kPideCodigo, kRevocado}));
    setField(kAna, QStringLiteral("Configuracion"), QStringLiteral("ContadorAccesos=-7"));
    EXPECT_FALSE(login(kAna, QStringLiteral("mala")));
    EXPECT_EQ(counter(kAna), QStringLiteral("1"));
}

TEST(FailedLoginCount, ReadsTheCounterOfAConfigurationBlock) {
    EXPECT_EQ(failedLoginCount(QString()), 0);
    EXPECT_EQ(failedLoginCount(QStringLiteral("VisualizacionPrevia=NO")), 0);
    EXPECT_EQ(failedLoginCount(QStringLiteral("A=1\r\nContadorAccesos= 2 \r\nB=3")), 2);
    EXPECT_EQ(failedLoginCount(QStringLiteral("ContadorAccesos=muchos")), 0);
    EXPECT_EQ(failedLoginCount(QStringLiteral("ContadorAccesos=-3")), 0);
    EXPECT_EQ(failedLoginCount(QStringLiteral("ContadorAccesos=+4")), 4);
    EXPECT_GE(failedLoginCount(QStringLiteral("ContadorAccesos=4294967296")),
              kMaximoAccesosFallidos);
}

TEST_P(Login, ClearTextPasswordIsReplacedByItsHashOnTheNextGoodLogin) {
    addUser(QStringLiteral("viejo"), QStringLiteral("Normal"), QStringLiteral("antigua"));
    EXPECT_FALSE(login(QStringLiteral("viejo"), QStringLiteral("ANTIGUA")));
    EXPECT_EQ(user(QStringLiteral("viejo")).ClaveAcceso, QStringLiteral("antigua"));
    EXPECT_TRUE(login(QStringLiteral("viejo"), QStringLiteral("antigua")));
    const QString stored = user(QStringLiteral("viejo")).ClaveAcceso;
    EXPECT_TRUE(isPasswordHash(stored)) << stored.toStdString();
    EXPECT_TRUE(verifyPassword(stored, QStringLiteral("antigua")));
    EXPECT_EQ(messages_.texts(), QStringList({kPideCodigo, kPideClave}));
    // From now on the hash decides; the hash text itself is no password.
    EXPECT_TRUE(login(QStringLiteral("viejo"), QStringLiteral("antigua")));
    EXPECT_EQ(user(QStringLiteral("viejo")).ClaveAcceso, stored);
    EXPECT_FALSE(login(QStringLiteral("viejo"), stored));
}

TEST_P(Login, HashOfAnotherCostIsRemadeAtTheCurrentOne) {
    withPassword(kAna, QStringLiteral("buena"));
    const QString before = user(kAna).ClaveAcceso;
    ASSERT_TRUE(setPasswordHashCost({2, 16384}));
    EXPECT_TRUE(login(kAna, QStringLiteral("buena")));
    const QString after = user(kAna).ClaveAcceso;
    EXPECT_NE(after, before);
    EXPECT_FALSE(passwordNeedsUpgrade(after));
    EXPECT_TRUE(verifyPassword(after, QStringLiteral("buena")));
}

TEST_P(Login, HostileCodesAndPasswordsAreJustText) {
    const QString code = QStringLiteral("';DROP TABLE USUARIO");
    const QString password = QStringLiteral("' OR '1'='1");
    withPassword(code, password);
    withPassword(QStringLiteral("dbo.x TOP 1"), QStringLiteral("x = NULL"));
    EXPECT_FALSE(login(code, QStringLiteral("x' OR 'a'='a")));
    EXPECT_FALSE(login(QStringLiteral("' OR '1'='1")));
    EXPECT_EQ(messages_.texts().last(), kNoDefinido);
    EXPECT_TRUE(login(code.toUpper(), password));
    EXPECT_EQ(accepted_, code);
    EXPECT_TRUE(login(QStringLiteral("dbo.x top 1"), QStringLiteral("x = NULL")));
    EXPECT_EQ(accepted_, QStringLiteral("dbo.x TOP 1"));
    EXPECT_EQ(general(QStringLiteral("SELECT COUNT(*) FROM USUARIO")), QStringLiteral("2"));
}

TEST_P(Login, ProfileUserKeepsItsOwnPasswordAndCounter) {
    withPassword(QStringLiteral("PERFIL"), QStringLiteral("del-perfil"),
                 QStringLiteral("Administrador"));
    withPassword(kAna, QStringLiteral("de-ana"), QStringLiteral("PERFIL"));
    setField(QStringLiteral("PERFIL"), QStringLiteral("Configuracion"),
             QStringLiteral("CamposNoVisibles=PrecioCompra,Margen"));
    EXPECT_FALSE(login(kAna, QStringLiteral("del-perfil")));
    EXPECT_EQ(counter(kAna), QStringLiteral("1"));
    EXPECT_EQ(counter(QStringLiteral("PERFIL")), QStringLiteral("0"));
    EXPECT_TRUE(login(kAna, QStringLiteral("de-ana")));
    EXPECT_EQ(accepted_, kAna);
    // Hidden fields come with the profile.
    EXPECT_EQ(sesionUsuario_.CamposNoVisibles,
              QStringList({QStringLiteral("PrecioCompra"), QStringLiteral("Margen")}));
    EXPECT_EQ(user(QStringLiteral("PERFIL")).Configuracion,
              QStringLiteral("CamposNoVisibles=PrecioCompra,Margen"));
}

TEST_P(Login, SystemLoginMakesAnUnknownUserNormalWithoutAnyPrompt) {
    opciones_.AutenticacionWindows = true;
    opciones_.UsuarioSistema = QStringLiteral("operario1");
    opciones_.ParametroUsuario = QStringLiteral("ignorado");
    QString code;
    messages_.clear();
    EXPECT_TRUE(IdentificarUsuario(*datos_, code, opciones_, &sesionUsuario_));
    EXPECT_TRUE(messages_.texts().isEmpty()) << messages_.texts().join(u'\n').toStdString();
    EXPECT_EQ(code, QStringLiteral("operario1"));
    const UserRecord r = user(QStringLiteral("operario1"));
    EXPECT_EQ(r.Nombre, QStringLiteral("operario1"));
    EXPECT_EQ(r.Categoria, QStringLiteral("Normal"));
    EXPECT_TRUE(r.ClaveAcceso.isEmpty());
    EXPECT_TRUE(findUser(*datos_, QStringLiteral("ignorado")) == std::nullopt);
}

TEST_P(Login, SystemLoginFindsAnExistingUserInAnyCaseAndAsksNoPassword) {
    withPassword(QStringLiteral("Operario1"), QStringLiteral("clave"));
    opciones_.AutenticacionWindows = true;
    opciones_.UsuarioSistema = QStringLiteral("OPERARIO1");
    QString code;
    messages_.clear();
    EXPECT_TRUE(IdentificarUsuario(*datos_, code, opciones_, &sesionUsuario_));
    EXPECT_TRUE(messages_.texts().isEmpty());
    EXPECT_EQ(code, QStringLiteral("Operario1"));
    EXPECT_EQ(sesionUsuario_.ClaveUsuario, user(QStringLiteral("Operario1")).ClaveAcceso);
    EXPECT_EQ(general(QStringLiteral("SELECT COUNT(*) FROM USUARIO")), QStringLiteral("1"));
}

TEST_P(Login, UnansweredPasswordPromptRefusesAndCountsNothing) {
    withPassword(kAna, QStringLiteral("buena"));
    setField(kAna, QStringLiteral("Configuracion"), QStringLiteral("ContadorAccesos=2"));
    // Three runs with nobody to type would lock the user out if they counted.
    for (int i = 0; i < 3; ++i) {
        messages_.clear();
        messages_.answer(kAna);
        messages_.cancel();
        QString code;
        EXPECT_FALSE(IdentificarUsuario(*datos_, code, opciones_));
        EXPECT_EQ(messages_.texts(), QStringList({kPideCodigo, kPideClave}));
    }
    EXPECT_EQ(counter(kAna), QStringLiteral("2"));
    EXPECT_TRUE(sesion_->CodigoUsuario.isEmpty());
    EXPECT_TRUE(login(kAna, QStringLiteral("buena")));
    EXPECT_EQ(counter(kAna), QStringLiteral("0"));
}

TEST_P(Login, CancelledPromptIsNotThePromptsOwnValue) {
    // The masked box is asked for with "Password" as its value: a cancel must
    // not hand that value back as the password typed.
    withPassword(kAna, kValorClaveOculta);
    messages_.clear();
    messages_.answer(kAna);
    messages_.cancel();
    QString code;
    EXPECT_FALSE(IdentificarUsuario(*datos_, code, opciones_));
    EXPECT_TRUE(sesion_->CodigoUsuario.isEmpty());
    EXPECT_EQ(counter(kAna), QStringLiteral("0"));
    EXPECT_TRUE(login(kAna, kValorClaveOculta));
}

// Another session (another process, in real life) works on the same user
// while this one waits for the password to be typed.
class LoginWhileOthersWork : public Login {
protected:
    // Runs `meanwhile` when the password prompt shows, then answers it.
    class PromptHook : public ScriptedMessages {
    public:
        std::function<void()> meanwhile;
        std::optional<QString> ask(const QString &title, const QString &text,
                                   const QString &value) override {
            if (text == kPideClave && meanwhile)
                std::exchange(meanwhile, nullptr)();
            return ScriptedMessages::ask(title, text, value);
        }
    };

    void SetUp() override {
        Login::SetUp();
        if (HasFatalFailure())
            return;
        sesion_->mensajes().setPort(&hook_);
        QString motivo;
        otraSesion_ = std::make_unique<test::SesionConTablas>(settings_, &motivo);
        ASSERT_TRUE(otraSesion_->datos) << motivo.toStdString();
        otra_ = otraSesion_->datos.get();
    }

    void TearDown() override {
        otraSesion_.reset();
        Login::TearDown();
    }

    bool loginWhile(const QString &clave, std::function<void()> meanwhile) {
        hook_.clear();
        hook_.answer(kAna);
        hook_.answer(clave);
        hook_.meanwhile = std::move(meanwhile);
        QString code;
        return IdentificarUsuario(*datos_, code, opciones_);
    }

    void otherSetsCounter(const QString &value) {
        ASSERT_TRUE(GuardarValorUsuario(*otra_, kAna, QStringLiteral("ContadorAccesos"), value));
    }

    PromptHook hook_;
    std::unique_ptr<test::SesionConTablas> otraSesion_;
    TModuloDatos *otra_ = nullptr;
};

TEST_P(LoginWhileOthersWork, RightPasswordIsRefusedWhenOthersLockedTheUserOutMeanwhile) {
    withPassword(kAna, QStringLiteral("buena"));
    EXPECT_FALSE(
        loginWhile(QStringLiteral("buena"), [&] { otherSetsCounter(QStringLiteral("3")); }));
    EXPECT_EQ(hook_.texts(), QStringList({kPideCodigo, kPideClave, kRevocado}));
    EXPECT_EQ(counter(kAna), QStringLiteral("3"));
    EXPECT_TRUE(sesion_->CodigoUsuario.isEmpty());
}

TEST_P(LoginWhileOthersWork, WrongPasswordAddsToWhatOthersCountedMeanwhile) {
    withPassword(kAna, QStringLiteral("buena"));
    EXPECT_FALSE(
        loginWhile(QStringLiteral("mala"), [&] { otherSetsCounter(QStringLiteral("2")); }));
    EXPECT_EQ(hook_.texts(), QStringList({kPideCodigo, kPideClave, kIncorrecta}));
    EXPECT_EQ(counter(kAna), QStringLiteral("3"));
    hook_.clear();
    hook_.answer(kAna);
    QString code;
    EXPECT_FALSE(IdentificarUsuario(*datos_, code, opciones_));
    EXPECT_EQ(hook_.texts(), QStringList({kPideCodigo, kRevocado}));
}

TEST_P(LoginWhileOthersWork, RightPasswordClearsWhatOthersCountedMeanwhile) {
    withPassword(kAna, QStringLiteral("buena"));
    EXPECT_TRUE(
        loginWhile(QStringLiteral("buena"), [&] { otherSetsCounter(QStringLiteral("2")); }));
    EXPECT_EQ(counter(kAna), QStringLiteral("0"));
    EXPECT_EQ(sesion_->CodigoUsuario, kAna);
}

TEST_P(LoginWhileOthersWork, PasswordChangedMeanwhileIsCheckedAgainstTheNewOne) {
    withPassword(kAna, QStringLiteral("buena"));
    auto changeTo = [&](const QString &clave) {
        return [this, clave] { ASSERT_TRUE(GuardarClaveAcceso(*otra_, kAna, clave)); };
    };
    // The old password no longer opens, even though it was right when asked for.
    EXPECT_FALSE(loginWhile(QStringLiteral("buena"), changeTo(QStringLiteral("nueva"))));
    EXPECT_EQ(hook_.texts().value(2), kIncorrecta);
    EXPECT_EQ(counter(kAna), QStringLiteral("1"));
    EXPECT_FALSE(loginWhile(QStringLiteral("nueva"), changeTo(QStringLiteral("otra"))));
    EXPECT_EQ(counter(kAna), QStringLiteral("2"));
    EXPECT_TRUE(loginWhile(QStringLiteral("final"), changeTo(QStringLiteral("final"))));
    EXPECT_EQ(counter(kAna), QStringLiteral("0"));
    EXPECT_TRUE(verifyPassword(user(kAna).ClaveAcceso, QStringLiteral("final")));
}

TEST_P(LoginWhileOthersWork, UserRemovedMeanwhileIsRefused) {
    withPassword(kAna, QStringLiteral("buena"));
    EXPECT_FALSE(loginWhile(QStringLiteral("buena"), [&] {
        otra_->EjecutarSQL(QStringLiteral("DELETE FROM USUARIO WHERE Codigo = 'ana'"),
                           QStringLiteral("DatabaseGeneral"));
    }));
    EXPECT_TRUE(sesion_->CodigoUsuario.isEmpty());
    EXPECT_EQ(hook_.texts(), QStringList({kPideCodigo, kPideClave, kNoDefinido}));
}

TEST_P(LoginWhileOthersWork, LoginInsideATransactionInCourseLeavesItAlone) {
    withPassword(kAna, QStringLiteral("buena"));
    ASSERT_TRUE(sesion_->IniciarTransaccion(QStringLiteral("DatabaseGeneral")));
    general(QStringLiteral("UPDATE USUARIO SET Nombre = 'a medias' WHERE Codigo = 'ana'"));
    EXPECT_FALSE(loginWhile(QStringLiteral("mala"), nullptr));
    EXPECT_TRUE(hook_.texts().value(2).startsWith(kNoGrabada))
        << hook_.texts().value(2).toStdString();
    EXPECT_TRUE(sesion_->TransaccionActiva());
    EXPECT_EQ(general(QStringLiteral("SELECT Nombre FROM USUARIO WHERE Codigo = 'ana'")),
              QStringLiteral("a medias"));
    ASSERT_TRUE(sesion_->CancelarTransaccion(QStringLiteral("DatabaseGeneral")));
    EXPECT_EQ(user(kAna).Nombre, QStringLiteral("Nombre de ana"));
    EXPECT_EQ(counter(kAna), QStringLiteral("0"));
}

// The account of the process, as the system tells it apart from this program.
QString accountName() {
    QProcess id;
    id.start(QStringLiteral("id"), {QStringLiteral("-un")});
    id.waitForFinished(10000);
    return QString::fromLocal8Bit(id.readAllStandardOutput()).trimmed();
}

TEST(SystemUserName, IsTheProcessAccountWhateverTheEnvironmentClaims) {
    const QString account = accountName();
    ASSERT_FALSE(account.isEmpty());
    ASSERT_NE(account, QStringLiteral("ADMIN"));
    const char *names[] = {"USER", "LOGNAME", "USERNAME"};
    std::vector<std::optional<QByteArray>> saved;
    for (const char *name : names)
        saved.push_back(qEnvironmentVariableIsSet(name) ? std::optional(qgetenv(name))
                                                        : std::nullopt);
    for (const char *name : names)
        qputenv(name, "ADMIN");
    const QString claimed = NombreUsuarioSistema();
    for (const char *name : names)
        qunsetenv(name);
    const QString unset = NombreUsuarioSistema();
    for (std::size_t i = 0; i < saved.size(); ++i) {
        if (saved[i])
            qputenv(names[i], *saved[i]);
    }
    EXPECT_EQ(claimed, account);
    EXPECT_EQ(unset, account);
}

// A `USUARIO` made by hand with a check that makes chosen writes fail.
class LoginWithFailingWrites : public Login {
protected:
    void makeTable(const QString &check) {
        general(
            QStringLiteral("CREATE TABLE USUARIO (Codigo VARCHAR(20) NOT NULL PRIMARY KEY, "
                           "Nombre VARCHAR(40), Categoria VARCHAR(20), ClaveAcceso VARCHAR(128), "
                           "Empresas TEXT, ProgramasNoAccesibles TEXT, ProgramasSoloLectura TEXT, "
                           "ProgramasActivos TEXT, Configuracion TEXT, CHECK (") +
            check + QStringLiteral("))"));
    }
};

TEST_P(LoginWithFailingWrites, SystemUserThatCannotBeAddedIsTold) {
    makeTable(QStringLiteral("Codigo <> 'bloqueado'"));
    opciones_.AutenticacionWindows = true;
    opciones_.UsuarioSistema = QStringLiteral("bloqueado");
    QString code;
    EXPECT_FALSE(IdentificarUsuario(*datos_, code, opciones_));
    EXPECT_EQ(messages_.texts(),
              QStringList({QStringLiteral("¡Imposible dar de alta el usuario!"), kNoDefinido}));
}

TEST_P(LoginWithFailingWrites, UnsavedCounterIsToldAndTheResultStands) {
    makeTable(
        QStringLiteral("Configuracion IS NULL OR Configuracion NOT LIKE '%ContadorAccesos=%'"));
    withPassword(kAna, QStringLiteral("buena"));
    EXPECT_FALSE(login(kAna, QStringLiteral("mala")));
    ASSERT_EQ(messages_.texts().size(), 4);
    EXPECT_EQ(messages_.texts().at(2), kIncorrecta);
    EXPECT_TRUE(messages_.texts().at(3).startsWith(kNoGrabada + QStringLiteral("Error.")))
        << messages_.texts().at(3).toStdString();
    EXPECT_EQ(counter(kAna), QStringLiteral("0"));
    EXPECT_TRUE(login(kAna, QStringLiteral("buena")));
}

TEST_P(LoginWithFailingWrites, UnsavedHashKeepsTheClearPasswordAndTheLogin) {
    makeTable(QStringLiteral("ClaveAcceso NOT LIKE '$argon2id$%'"));
    addUser(QStringLiteral("viejo"), QStringLiteral("Normal"), QStringLiteral("antigua"));
    EXPECT_TRUE(login(QStringLiteral("viejo"), QStringLiteral("antigua")));
    EXPECT_EQ(sesion_->CodigoUsuario, QStringLiteral("viejo"));
    ASSERT_EQ(messages_.texts().size(), 3);
    EXPECT_TRUE(messages_.texts().at(2).startsWith(kNoGrabada));
    EXPECT_EQ(user(QStringLiteral("viejo")).ClaveAcceso, QStringLiteral("antigua"));
}

CO_ON_BOTH_BACKENDS(Login);
CO_ON_BOTH_BACKENDS(LoginWithFailingWrites);
CO_ON_BOTH_BACKENDS(LoginWhileOthersWork);

} // namespace
} // namespace co
