#include "core/translation.h"

#include "core/connection_words.h"
#include "core/database.h"
#include "core/messages.h"
#include "core/sql_text.h"
#include "core/translation_text.h"

#include <QScopeGuard>
#include <QSet>

namespace co {

namespace {

const QString kSelectTexto = QStringLiteral("SELECT TOP 1 Texto FROM TXIDIOMA   WHERE Idioma = ");
const QString kSelectClave =
    QStringLiteral("SELECT TOP 1 ClaveTexto FROM TXIDIOMA   WHERE Idioma = ");
const QString kYClave = QStringLiteral("    AND ClaveTexto = ");

// How each back-end matches a key by a pattern with case and accents counting:
// SQLite's LIKE ignores the case of ASCII letters, its GLOB does not.
struct PatternRule {
    QString op;
    QString any;
    QString suffix;
    QList<std::pair<QString, QString>> escapes; // applied in order
};

const PatternRule &patternRule(Backend backend) {
    static const PatternRule sqlite{QStringLiteral("GLOB"),
                                    QStringLiteral("*"),
                                    {},
                                    {{QStringLiteral("["), QStringLiteral("[[]")},
                                     {QStringLiteral("*"), QStringLiteral("[*]")},
                                     {QStringLiteral("?"), QStringLiteral("[?]")}}};
    static const PatternRule postgres{QStringLiteral("LIKE"),
                                      QStringLiteral("%"),
                                      QStringLiteral(" ESCAPE '!'"),
                                      {{QStringLiteral("!"), QStringLiteral("!!")},
                                       {QStringLiteral("%"), QStringLiteral("!%")},
                                       {QStringLiteral("_"), QStringLiteral("!_")}}};
    return backend == Backend::SQLite ? sqlite : postgres;
}

// The condition on the key for word `i` of `n`: the first word starts the key,
// the last ends it, a middle word stands anywhere.
QString patternCondition(Backend backend, const QString &word, int i, int n) {
    const PatternRule &rule = patternRule(backend);
    QString literal = word;
    for (const auto &[from, to] : rule.escapes)
        literal.replace(from, to);
    const QString pattern =
        (i > 0 ? rule.any : QString()) + literal + (i < n - 1 ? rule.any : QString());
    return QStringLiteral(" AND ClaveTexto ") + rule.op + u' ' + Entrecomillar(pattern) +
           rule.suffix;
}

bool isTextList(const QString &propiedad) {
    static const QSet<QString> lists = {QStringLiteral("Hints"), QStringLiteral("Items"),
                                        QStringLiteral("Lines"), QStringLiteral("Tabs")};
    return lists.contains(propiedad);
}

} // namespace

Translator::Translator(TModuloDatos &datos, QString idioma, QString intercalacion)
    : datos_(datos), idioma_(std::move(idioma)), intercalacion_(std::move(intercalacion)) {}

QString Translator::intercalacion() const {
    if (intercalacion_.isEmpty())
        return {};
    QString accentSensitive = intercalacion_;
    accentSensitive.replace(QStringLiteral("_AI"), QStringLiteral("_AS"));
    return QStringLiteral(" COLLATE ") + accentSensitive;
}

QString Translator::cacheKey(const QString &texto, const QString &idioma) const {
    // One cache for the session; a text asked in another language is another entry.
    return idioma == idioma_ ? texto : idioma + u'\x1f' + texto;
}

bool Translator::generalConectada() {
    QString motivo;
    return datos_.sesion().conexion(kConexionGeneral, Canal::Principal, &motivo).has_value();
}

std::optional<QString> Translator::primerValor(const QString &sql) {
    Consulta consulta;
    consulta.SQL = sql;
    consulta.DatabaseName = kConexionGeneral;
    if (!datos_.AbrirConsulta(consulta, QStringLiteral("Silencio")) || consulta.RecordCount() == 0)
        return std::nullopt;
    return consulta.Value(0, 0).toString();
}

QString Translator::TraducirTexto(const QString &texto, const QString &idioma) {
    const QString lengua = idiomaDe(idioma);
    if (lengua.isEmpty() || texto.isEmpty() || texto.startsWith(QStringLiteral("QR")) ||
        texto.startsWith(QStringLiteral("LB")))
        return texto;
    const QString clave = QString(texto).remove(u'&');
    if (clave.size() <= 1)
        return texto;
    // A text already settled is answered by the cache, before anything else.
    if (!clave.contains(u'='))
        if (const std::optional<QString> hit = cache_.find(cacheKey(clave, lengua)))
            return *hit == clave ? texto : *hit;
    // A message raised inside a lookup comes back here through the message port.
    if (busy_ || !generalConectada())
        return texto;
    busy_ = true;
    const auto idle = qScopeGuard([this] { busy_ = false; });
    std::optional<QString> traduccion = BuscarTraduccion(clave, lengua);
    if (!traduccion)
        traduccion = BuscarTraduccionAproximada(clave, lengua);
    if (!traduccion) {
        const QString palabras = traducirPalabras(clave, lengua);
        if (palabras != clave)
            traduccion = palabras;
    }
    if (!traduccion || *traduccion == clave) {
        if (!clave.contains(u'='))
            cache_.store(cacheKey(clave, lengua), clave);
        return texto;
    }
    return *traduccion;
}

QString Translator::traducirPalabras(const QString &texto, const QString &idioma) {
    // Odd pieces between "$" marks are parameters and keep their words.
    QStringList piezas = texto.split(u'$');
    for (int i = 0; i < piezas.size(); i += 2) {
        QStringList palabras = piezas[i].split(u' ');
        for (QString &palabra : palabras) {
            if (palabra.isEmpty())
                continue;
            if (const std::optional<QString> t = BuscarTraduccion(palabra, idioma))
                palabra = *t;
        }
        piezas[i] = palabras.join(u' ');
    }
    return piezas.join(u'$');
}

std::optional<QString> Translator::BuscarTraduccion(const QString &texto, const QString &idioma) {
    const QString lengua = idiomaDe(idioma);
    if (lengua.isEmpty() || texto.isEmpty())
        return std::nullopt;
    // A text with "=" would not survive as a Name=value pair of the session list.
    const bool cacheable = !texto.contains(u'=');
    if (cacheable)
        if (const std::optional<QString> hit = cache_.find(cacheKey(texto, lengua)))
            return hit;
    const std::optional<QString> respuesta = primerValor(
        kSelectTexto + Entrecomillar(lengua) + kYClave + Entrecomillar(texto) + intercalacion());
    if (!respuesta || respuesta->isEmpty())
        return std::nullopt;
    if (cacheable)
        cache_.store(cacheKey(texto, lengua), *respuesta);
    return respuesta;
}

std::optional<QString> Translator::BuscarTraduccionAproximada(const QString &texto,
                                                              const QString &idioma) {
    const QString lengua = idiomaDe(idioma);
    const QStringList palabras = PalabrasFrase(texto);
    if (lengua.isEmpty() || palabras.size() < 2)
        return std::nullopt;
    const Backend backend = datos_.sesion().backend();
    const QString inicio = kSelectClave + Entrecomillar(lengua);
    QString condiciones;
    QString clave;
    const int n = static_cast<int>(palabras.size());
    for (int i = 0; i < n; ++i) {
        const QString intento = condiciones + patternCondition(backend, palabras[i], i, n);
        // Key order, as the primary key gives it, so that of "Factura \X" and
        // "Factura \X del cliente \X" the shorter is tried first on every back-end.
        const QString sql =
            inicio + intento + intercalacion() + QStringLiteral(" ORDER BY ClaveTexto");
        if (const std::optional<QString> hallada = primerValor(sql)) {
            condiciones = intento;
            clave = *hallada;
        }
    }
    if (clave.isEmpty())
        return std::nullopt;
    const std::optional<QStringList> partes = PartesVariables(texto, clave);
    if (!partes)
        return std::nullopt;
    const std::optional<QString> traduccion = primerValor(
        kSelectTexto + Entrecomillar(lengua) + kYClave + Entrecomillar(clave) + intercalacion());
    if (!traduccion || traduccion->isEmpty())
        return std::nullopt;
    return SustituirPartesVariables(*traduccion, *partes);
}

void Translator::TraducirFormulario(QList<TextoFormulario> &textos, const QString &idioma) {
    if (idiomaDe(idioma).isEmpty())
        return;
    for (TextoFormulario &t : textos) {
        if (!isTextList(t.propiedad)) {
            t.texto = TraducirTexto(t.texto, idioma);
            continue;
        }
        const QString salto = t.texto.contains(QStringLiteral("\r\n")) ? QStringLiteral("\r\n")
                                                                       : QStringLiteral("\n");
        QStringList lineas = t.texto.split(salto);
        for (QString &linea : lineas)
            linea = TraducirTexto(linea, idioma);
        t.texto = lineas.join(salto);
    }
}

void Translator::TraducirMensajes(Messenger &mensajes) {
    mensajes.setTranslator([this](const QString &texto) { return TraducirTexto(texto); });
}

} // namespace co
