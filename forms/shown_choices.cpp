#include "forms/shown_choices.h"

namespace co::forms {
namespace {

QString cruzar(const QStringList &desde, const QStringList &hacia, const QString &texto) {
    if (desde.size() != hacia.size())
        return texto;
    const qsizetype i = desde.indexOf(texto);
    return i < 0 ? texto : hacia[i];
}

} // namespace

QString ValorMostrado(const QStringList &valores, const QStringList &mostrados, const QString &valor) {
    return cruzar(valores, mostrados, valor);
}

QString ValorGuardado(const QStringList &valores, const QStringList &mostrados, const QString &mostrado) {
    return cruzar(mostrados, valores, mostrado);
}

} // namespace co::forms
