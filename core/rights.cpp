#include "core/rights.h"

#include "core/memo_list.h"
#include "core/sql_text.h"
#include "core/text_utils.h"
#include "core/users.h"

namespace co {
namespace {

QStringList memoLines(TModuloDatos &datos, const QString &usuario, const QString &campo) {
    QString value;
    ValorUsuario(datos, usuario, campo, value);
    return MemoALista(value).value_or(QStringList{});
}

bool listsProgram(const QStringList &lines, const QString &programa) {
    const QString name = SinAmpersand(programa);
    for (const QString &line : lines) {
        if (SinAmpersand(line) == name)
            return true;
    }
    return false;
}

} // namespace

bool UsuarioAccedeEmpresa(TModuloDatos &datos, const QString &usuario, int empresa) {
    return memoLines(datos, usuario, QStringLiteral("Empresas")).contains(QString::number(empresa));
}

QString NivelAccesoPrograma(TModuloDatos &datos, const QString &usuario, const QString &programa) {
    if (listsProgram(memoLines(datos, usuario, QStringLiteral("ProgramasNoAccesibles")),
                     programa)) {
        datos.sesion().mensajes().MensajeI(QStringLiteral("Vd. no tiene acceso al programa ") +
                                           SinAmpersand(programa));
        return kNivelNinguno;
    }
    if (listsProgram(memoLines(datos, usuario, QStringLiteral("ProgramasSoloLectura")), programa))
        return kNivelSoloLectura;
    return kNivelTotal;
}

bool UsuarioAccedePrograma(TModuloDatos &datos, const QString &usuario, const QString &programa) {
    const QString nivel = NivelAccesoPrograma(datos, usuario, programa);
    return nivel == kNivelTotal || nivel == kNivelSoloLectura;
}

bool ProgramaActivo(TModuloDatos &datos, const QString &usuario, const QString &programa) {
    return listsProgram(memoLines(datos, usuario, QStringLiteral("ProgramasActivos")), programa);
}

bool EsAdministrador(TModuloDatos &datos, const QString &usuario, const QString &opciones) {
    if (CategoriaUsuario(datos, usuario) == kAdministrador)
        return true;
    if (!TieneOpcion(opciones, QStringLiteral("Silencio")))
        datos.sesion().mensajes().MensajeA(
            QStringLiteral("¡Es necesario ser un usuario con categoría de Administrador para "
                           "realizar este proceso!"));
    return false;
}

QString ProcesosProhibidos(TModuloDatos &datos, const QString &usuario) {
    QString value;
    ValorUsuario(datos, usuario, QStringLiteral("ProcesosNoAutorizados"), value);
    return value;
}

} // namespace co
