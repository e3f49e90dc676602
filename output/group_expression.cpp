#include "output/group_expression.h"

#include <QRegularExpression>

namespace co {

namespace {

bool esNombreCampo(const QString &texto) {
    static const QRegularExpression re(
        QStringLiteral("^[A-Za-z_][A-Za-z0-9_ ]*(\\.[A-Za-z_][A-Za-z0-9_]*)?$"));
    return re.match(texto).hasMatch();
}

// "Name(inner)" -> inner, when the text is a call of `name`.
std::optional<QString> argumento(const QString &texto, const QString &name) {
    if (!texto.startsWith(name + u'(', Qt::CaseInsensitive) || !texto.endsWith(u')'))
        return std::nullopt;
    return texto.mid(name.size() + 1, texto.size() - name.size() - 2).trimmed();
}

QString malformada(const QString &texto) {
    return QStringLiteral("La expresión \"%1\" del informe no es válida").arg(texto);
}

} // namespace

std::optional<ExpresionGrupo> ExpresionGrupo::Analizar(const QString &texto, QString *motivo) {
    ExpresionGrupo e;
    for (QString term : texto.split(u'+')) {
        term = term.trimmed();
        if (const auto inner = argumento(term, QStringLiteral("Str")))
            term = *inner;
        if (!esNombreCampo(term)) {
            if (motivo)
                *motivo = malformada(texto);
            return std::nullopt;
        }
        e.campos << term;
    }
    return e;
}

std::optional<QString> CampoDeSuma(const QString &texto, QString *motivo) {
    const auto inner = argumento(texto.trimmed(), QStringLiteral("SUM"));
    if (!inner || !esNombreCampo(*inner)) {
        if (motivo)
            *motivo = malformada(texto);
        return std::nullopt;
    }
    return *inner;
}

} // namespace co
