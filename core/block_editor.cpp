#include "core/block_editor.h"

#include "core/key_value_block.h"

namespace co {
namespace {

const QString kNoValidar = QStringLiteral("NoValidar");

GeometriaVentana parseFormat(const QString &formato) {
    GeometriaVentana g;
    for (const QString &line : memo::Lineas(formato)) {
        if (!line.trimmed().startsWith(QLatin1String("Formato="), Qt::CaseInsensitive))
            continue;
        QString text = line.trimmed().mid(8);
        while (text.endsWith(u';'))
            text.chop(1);
        const QStringList parts = text.split(u',');
        int *targets[] = {&g.left, &g.top, &g.width, &g.height};
        for (int i = 0; i < 4 && i < parts.size(); ++i)
            *targets[i] = qMax(0, parts.at(i).trimmed().toInt());
        break;
    }
    return g;
}

void applyOptions(FilaRegistroINI &row, const QStringList &items, bool globalNoValidar) {
    row.validar = !globalNoValidar;
    const QString first = items.value(0).trimmed();
    if (items.size() == 1 && first == u"ELLIPSIS") {
        row.tipo = TipoValorINI::Ellipsis;
        return;
    }
    if (items.size() == 1 && first == u"ELLIPSIS_RANGO") {
        row.tipo = TipoValorINI::EllipsisRango;
        return;
    }
    if (first.startsWith(QLatin1String("ELLIPSIS_GA"))) {
        row.tipo = TipoValorINI::EllipsisGA;
        const int colon = first.indexOf(u':');
        row.categoria = colon < 0 ? QString() : first.mid(colon + 1).trimmed();
        return;
    }
    row.tipo = TipoValorINI::Lista;
    for (const QString &item : items) {
        if (item == u"?" || item == kNoValidar) {
            row.validar = false;
            continue;
        }
        const int gt = item.indexOf(u'>');
        row.visibles << (gt < 0 ? item : item.left(gt));
        row.guardados << (gt < 0 ? item : item.mid(gt + 1));
    }
}

} // namespace

TfGENERINI::TfGENERINI(const QString &plantilla, const QString &actual, const QString &formato,
                       const QString &opciones, const QString &titulos, Messenger &mensajes)
    : geometria_(parseFormat(formato)), mensajes_(mensajes) {
    const QStringList titles = titulos.split(u';');
    tituloCampo_ = titles.value(0);
    tituloValor_ = titles.value(1);
    bool globalNoValidar = false;
    for (const QString &line : memo::Lineas(opciones))
        globalNoValidar = globalNoValidar || line.trimmed() == kNoValidar;

    for (const QString &line : memo::Lineas(plantilla)) {
        if (line.trimmed().isEmpty())
            continue;
        const int eq = line.indexOf(u'=');
        FilaRegistroINI row;
        row.clave = (eq < 0 ? line : line.left(eq)).trimmed();
        if (row.clave.isEmpty())
            continue;
        QString value = eq < 0 ? QString() : line.mid(eq + 1);
        if (value == u"NULL")
            value.clear();
        if (const std::optional<QString> current = memo::BuscarClave(actual, row.clave))
            value = *current;
        row.valor = row.valorInicial = value;
        row.validar = !globalNoValidar;
        if (const std::optional<QString> items = memo::BuscarClave(opciones, row.clave))
            applyOptions(row, items->split(u','), globalNoValidar);
        filas_ << row;
    }
}

QString TfGENERINI::TextoCampo(int fila) const {
    if (!valid(fila))
        return {};
    const FilaRegistroINI &row = filas_.at(fila);
    return row.modificada() ? row.clave + QStringLiteral(" (*)") : row.clave;
}

bool TfGENERINI::ModificarValor(int fila, const QString &texto) {
    if (!valid(fila))
        return false;
    filas_[fila].valor = memo::CodificarSaltos(texto);
    return true;
}

bool TfGENERINI::PedirRango(int fila) {
    if (!valid(fila) || filas_.at(fila).tipo != TipoValorINI::EllipsisRango)
        return false;
    const QString &key = filas_.at(fila).clave;
    const QString current = filas_.at(fila).valor;
    const int dots = current.indexOf(QLatin1String("..."));
    const QString from = mensajes_.MensajeP(QStringLiteral("Introduzca el valor Desde para ") + key,
                                            dots < 0 ? current : current.left(dots));
    const QString to = mensajes_.MensajeP(QStringLiteral("Introduzca el valor Hasta para ") + key,
                                          dots < 0 ? QString() : current.mid(dots + 3));
    return ModificarValor(fila, from + QStringLiteral("...") + to);
}

bool TfGENERINI::SeleccionarGrupos(int fila) {
    if (!valid(fila) || filas_.at(fila).tipo != TipoValorINI::EllipsisGA || !selector_)
        return false;
    const std::optional<QString> chosen =
        selector_(filas_.at(fila).categoria, filas_.at(fila).valor);
    return chosen && ModificarValor(fila, *chosen);
}

QString TfGENERINI::TituloVisor(int fila) const {
    return valid(fila) ? QStringLiteral("Contenido del Campo: ") + filas_.at(fila).clave
                       : QString();
}

QString TfGENERINI::ContenidoVisor(int fila) const {
    return valid(fila) ? memo::DecodificarSaltos(filas_.at(fila).valor) : QString();
}

QStringList TfGENERINI::DefinicionSelector(int fila) const {
    if (!valid(fila) || filas_.at(fila).tipo != TipoValorINI::Lista)
        return {};
    return {QStringLiteral("Titulo=Selección de ") + filas_.at(fila).clave,
            QStringLiteral("Modo=Normal")};
}

bool TfGENERINI::Aceptar(QString &resultado) {
    QStringList stored;
    for (const FilaRegistroINI &row : std::as_const(filas_)) {
        QString value = row.valor;
        if (row.tipo == TipoValorINI::Lista) {
            const qsizetype shown = row.visibles.indexOf(value);
            if (shown >= 0) {
                value = row.guardados.at(shown);
            } else if (!row.guardados.contains(value) && row.validar) {
                mensajes_.MensajeA(value.isEmpty()
                                       ? QStringLiteral("¡No existe el valor para el campo ") +
                                             row.clave
                                       : QStringLiteral("¡El valor para el campo ") + row.clave +
                                             QStringLiteral(" es incorrecto!"));
                return false;
            }
        }
        stored << row.clave + u'=' + value;
    }
    resultado = stored.join(QStringLiteral("\r\n"));
    return true;
}

bool EditarRegistroINI(const QString &plantilla, const QString &actual, QString &resultado,
                       const QString &formato, const QString &opciones, const QString &titulos,
                       Messenger &mensajes, BlockEditorView &vista) {
    TfGENERINI editor(plantilla, actual, formato, opciones, titulos, mensajes);
    QString block;
    if (!vista.run(editor, block))
        return false;
    resultado = block;
    return true;
}

QString PlantillaCorreoElectronico() {
    const QStringList keys = {
        QStringLiteral("ServidorSMTP"),    QStringLiteral("CodigoUsuarioSMTP"),
        QStringLiteral("ClaveAccesoSMTP"), QStringLiteral("PuertoSSL"),
        QStringLiteral("CuentaFromSMTP"),  QStringLiteral("CuentaSMTPCopiasDocumentos")};
    QStringList lines{QStringLiteral("ClienteSMTP=Por Defecto")};
    for (const QString &key : keys)
        lines << key + QStringLiteral("=NULL");
    lines << QStringLiteral("ClienteSMTP(Masivo)=Indy");
    for (const QString &key : keys)
        lines << key + QStringLiteral("(Masivo)=NULL");
    return lines.join(QStringLiteral("\r\n"));
}

QString OpcionesCorreoElectronico() {
    return QStringLiteral("ClienteSMTP=Por Defecto,Indy\r\nClienteSMTP(Masivo)=Por Defecto,Indy");
}

} // namespace co
