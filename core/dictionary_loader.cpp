#include "core/dictionary_loader.h"

#include "core/connection_words.h"
#include "core/database.h"
#include "core/sql_text.h"

#include <QFile>
#include <QHash>
#include <QList>
#include <QStringDecoder>

namespace co {

namespace {

const QString kOpciones = QStringLiteral("Silenciosa");
constexpr int kLongitudIdioma = 20;
constexpr int kLongitudClave = 255;

struct Par {
    QString clave;
    QString texto;
};

bool fail(QString *motivo, const QString &why) {
    if (motivo)
        *motivo = why;
    return false;
}

bool readPairs(const QString &archivo, QList<Par> *pares, QString *motivo) {
    QFile file(archivo);
    if (!file.open(QIODevice::ReadOnly))
        return fail(motivo, QStringLiteral("No ha sido posible leer el archivo %1.").arg(archivo));
    QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString contenido = utf8(file.readAll());
    if (utf8.hasError())
        return fail(motivo, QStringLiteral("El archivo %1 no está escrito en UTF-8.").arg(archivo));
    QHash<QString, int> lineaDe;
    const QStringList lineas = contenido.split(u'\n');
    for (int i = 0; i < lineas.size(); ++i) {
        QString linea = lineas[i];
        if (linea.endsWith(u'\r'))
            linea.chop(1);
        if (linea.trimmed().isEmpty() || linea.startsWith(u'#'))
            continue;
        const int numero = i + 1;
        const qsizetype tab = linea.indexOf(u'\t');
        if (tab < 0)
            return fail(motivo, QStringLiteral("La línea %1 del archivo %2 no tiene el texto y su "
                                               "traducción separados por un tabulador.")
                                    .arg(QString::number(numero), archivo));
        const Par par{linea.left(tab), linea.mid(tab + 1)};
        if (par.clave.trimmed().isEmpty() || par.texto.trimmed().isEmpty())
            return fail(motivo, QStringLiteral("La línea %1 del archivo %2 tiene vacío el texto o "
                                               "su traducción.")
                                    .arg(QString::number(numero), archivo));
        if (par.clave.size() > kLongitudClave)
            return fail(
                motivo,
                QStringLiteral("La línea %1 del archivo %2 tiene un texto de más de "
                               "%3 caracteres.")
                    .arg(QString::number(numero), archivo, QString::number(kLongitudClave)));
        if (lineaDe.contains(par.clave))
            return fail(motivo, QStringLiteral("La línea %1 del archivo %2 repite el texto de la "
                                               "línea %3.")
                                    .arg(QString::number(numero), archivo,
                                         QString::number(lineaDe.value(par.clave))));
        lineaDe.insert(par.clave, numero);
        pares->append(par);
    }
    if (pares->isEmpty())
        return fail(motivo,
                    QStringLiteral("El archivo %1 no contiene ninguna traducción.").arg(archivo));
    return true;
}

} // namespace

bool CargarDiccionario(TModuloDatos &datos, const QString &idioma, const QString &archivo,
                       QString *motivo) {
    if (idioma.trimmed().isEmpty())
        return fail(motivo, QStringLiteral("Debe indicar el idioma del diccionario."));
    if (idioma.size() > kLongitudIdioma)
        return fail(motivo, QStringLiteral("El idioma \"%1\" tiene más de %2 caracteres.")
                                .arg(idioma, QString::number(kLongitudIdioma)));
    QList<Par> pares;
    if (!readPairs(archivo, &pares, motivo))
        return false;

    auto dbFailure = [&](const QString &why) {
        return fail(motivo,
                    QStringLiteral("No ha sido posible cargar el diccionario. Motivo: ") + why);
    };
    // Reading the tables first makes any missing one before the transaction starts.
    const QString lengua = Entrecomillar(idioma);
    const QString existe =
        datos.EjecutarSQL(QStringLiteral("SELECT Codigo FROM IDIOMA WHERE Codigo = ") + lengua,
                          kConexionGeneral, kOpciones);
    if (EsResultadoError(existe))
        return dbFailure(existe);
    const QString tabla = datos.EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM TXIDIOMA"),
                                            kConexionGeneral, kOpciones);
    if (EsResultadoError(tabla))
        return dbFailure(tabla);

    TransaccionGuard guard(datos.sesion(), kConexionGeneral);
    if (!guard.ok())
        return dbFailure(QStringLiteral("no se pudo iniciar la transacción."));
    QStringList sentencias;
    if (existe.isEmpty())
        sentencias << QStringLiteral("INSERT INTO IDIOMA (Codigo, Descripcion) VALUES (%1, %1)")
                          .arg(lengua);
    for (const Par &par : pares) {
        const QString clave = Entrecomillar(par.clave);
        sentencias << QStringLiteral("DELETE FROM TXIDIOMA WHERE Idioma = %1 AND ClaveTexto = %2")
                          .arg(lengua, clave)
                   << QStringLiteral(
                          "INSERT INTO TXIDIOMA (Idioma, ClaveTexto, Texto) VALUES (%1, %2, %3)")
                          .arg(lengua, clave, Entrecomillar(par.texto));
    }
    for (const QString &sql : sentencias) {
        const QString result = datos.EjecutarSQL(sql, kConexionGeneral, kOpciones);
        if (EsResultadoError(result))
            return dbFailure(result);
    }
    if (!guard.commit())
        return dbFailure(QStringLiteral("no se pudo confirmar la transacción."));
    return true;
}

} // namespace co
