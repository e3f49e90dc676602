#include "core/users.h"

#include "core/key_value_block.h"
#include "core/memo_list.h"
#include "core/user_table.h"

#include <QRegularExpression>

namespace co {
namespace {

const QStringList kCamposLista = {
    QStringLiteral("Empresas"), QStringLiteral("ProgramasNoAccesibles"),
    QStringLiteral("ProgramasSoloLectura"), QStringLiteral("ProgramasActivos")};

// Keys kept per user even when a profile gives the rest.
const QStringList kClavesPropias = {QStringLiteral("IndicesBusqueda"),
                                    QStringLiteral("DatosBusqueda"),
                                    QStringLiteral("ContadorAccesos")};

QString fieldOf(const QString &clave) {
    for (const QString &field : kCamposLista) {
        if (field.compare(clave, Qt::CaseInsensitive) == 0)
            return field;
    }
    return {};
}

bool ownKey(const QString &clave) {
    return kClavesPropias.contains(clave.trimmed(), Qt::CaseInsensitive);
}

QString fieldValue(const UserRecord &r, const QString &field) {
    if (field == u"Empresas")
        return r.Empresas;
    if (field == u"ProgramasNoAccesibles")
        return r.ProgramasNoAccesibles;
    if (field == u"ProgramasSoloLectura")
        return r.ProgramasSoloLectura;
    return r.ProgramasActivos;
}

bool isCategoryWord(const QString &categoria) {
    return categoria.isEmpty() || categoria == kAdministrador || categoria == kConfigurador ||
           categoria == kNormal;
}

// The record that holds `clave` for `usuario`.
QString holderOf(TModuloDatos &datos, const QString &usuario, const QString &clave) {
    return ownKey(clave) ? usuario : CodigoPerfil(datos, usuario);
}

void tellSaveFailure(TModuloDatos &datos, const QString &motivo) {
    datos.sesion().mensajes().MensajeA(
        QStringLiteral("¡Imposible grabar la configuración del usuario!. Motivo: ") + motivo);
}

} // namespace

QString CodigoPerfil(TModuloDatos &datos, const QString &usuario) {
    const std::optional<UserRecord> r = findUser(datos, usuario);
    if (!r)
        return usuario;
    return isCategoryWord(r->Categoria) ? r->Codigo : r->Categoria;
}

QString CategoriaUsuario(TModuloDatos &datos, const QString &usuario) {
    const std::optional<UserRecord> r = findUser(datos, CodigoPerfil(datos, usuario));
    return r ? r->Categoria : QString();
}

bool ValorUsuario(TModuloDatos &datos, const QString &usuario, const QString &clave, QString &valor,
                  const QString &defecto) {
    valor = defecto;
    const std::optional<UserRecord> r = findUser(datos, holderOf(datos, usuario, clave));
    if (!r)
        return false;
    const QString field = fieldOf(clave);
    if (field.isEmpty())
        return memo::ValorClave(r->Configuracion, clave, valor, defecto);
    const QString value = fieldValue(*r, field);
    if (value.isEmpty())
        return false;
    valor = value;
    return true;
}

bool GuardarValorUsuario(TModuloDatos &datos, const QString &usuario, const QString &clave,
                         const QString &valor) {
    QString motivo;
    const std::optional<UserRecord> r = findUser(datos, holderOf(datos, usuario, clave), &motivo);
    if (!r) {
        tellSaveFailure(datos, motivo.isEmpty() ? QStringLiteral("¡El usuario no está definido!")
                                                : motivo);
        return false;
    }
    const QString field = fieldOf(clave);
    if (!field.isEmpty()) {
        if (updateUserField(datos, r->Codigo, field, valor, &motivo))
            return true;
        tellSaveFailure(datos, motivo);
        return false;
    }
    QString block = r->Configuracion;
    if (!memo::ModificarClave(clave, valor, block)) {
        tellSaveFailure(datos, QStringLiteral("Nombre de clave no válido: ") + clave);
        return false;
    }
    if (updateUserField(datos, r->Codigo, QStringLiteral("Configuracion"), block, &motivo))
        return true;
    tellSaveFailure(datos, motivo);
    return false;
}

QStringList ListaValorUsuario(const QString &valor) {
    static const QRegularExpression separators(QStringLiteral("[,\\x{00B7}]"));
    QString lines = valor;
    lines.replace(separators, QStringLiteral("\r\n"));
    QStringList out;
    for (const QString &item : MemoALista(lines).value_or(QStringList{})) {
        const QString t = item.trimmed();
        if (!t.isEmpty())
            out << t;
    }
    return out;
}

bool CrearPrimerUsuario(TModuloDatos &datos, const QString &codigo, QString *motivo) {
    const std::optional<bool> empty = userTableEmpty(datos, motivo);
    if (!empty)
        return false;
    if (!*empty)
        return true;
    UserRecord first;
    first.Codigo = codigo;
    first.Nombre = kAdministrador;
    first.Categoria = kAdministrador;
    return insertUser(datos, first, motivo);
}

} // namespace co
