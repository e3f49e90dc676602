#include "demo/insert_batch.h"

#include "core/sql_text.h"

namespace co::demo {

QString DestinoModuloDatos::Ejecutar(const QString &sql) {
    const QString r = datos_.EjecutarSQL(sql, {}, QStringLiteral("Silenciosa"));
    return EsResultadoError(r) ? r : QString();
}

LoteInsercion::LoteInsercion(DestinoSentencias &destino, const QString &tabla,
                             const QStringList &columnas, int filasPorSentencia)
    : destino_(destino),
      cabecera_(QStringLiteral("INSERT INTO ") + tabla + QStringLiteral(" (") +
                columnas.join(QStringLiteral(", ")) + QStringLiteral(") VALUES ")),
      filasPorSentencia_(filasPorSentencia > 0 ? filasPorSentencia : 1) {}

void LoteInsercion::Fila(const QStringList &literales) {
    if (!fallo_.isEmpty())
        return;
    sentencia_ += pendientes_ == 0 ? cabecera_ : QStringLiteral(", ");
    sentencia_ += u'(' + literales.join(QStringLiteral(", ")) + u')';
    ++filas_;
    if (++pendientes_ >= filasPorSentencia_)
        Vaciar();
}

bool LoteInsercion::Vaciar() {
    if (pendientes_ > 0 && fallo_.isEmpty())
        fallo_ = destino_.Ejecutar(sentencia_);
    pendientes_ = 0;
    sentencia_.clear();
    return fallo_.isEmpty();
}

QString Texto(const QString &texto) {
    return Entrecomillar(texto);
}

QString Entero(qint64 valor) {
    return QString::number(valor);
}

QString Numero(double valor, int decimales) {
    QString t = QString::number(valor, 'f', decimales);
    if (t.startsWith(u'-') && t.toDouble() == 0.0)
        t.remove(0, 1);
    return t;
}

QString Fecha(const QDate &fecha) {
    return u'\'' + fecha.toString(QStringLiteral("yyyy-MM-dd")) + QStringLiteral(" 00:00:00'");
}

QString Hora(const QTime &hora) {
    return QStringLiteral("'1899-12-30 ") + hora.toString(QStringLiteral("hh:mm:ss")) + u'\'';
}

} // namespace co::demo
