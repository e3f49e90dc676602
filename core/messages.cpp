#include "core/messages.h"

#include "core/failure_handler.h"

#include <cstdio>

namespace co {

QString TituloMensaje(QChar kind) {
    switch (kind.unicode()) {
    case u'I':
        return QStringLiteral("Información");
    case u'A':
        return QStringLiteral("Advertencia");
    case u'E':
        return QStringLiteral("Error");
    case u'C':
        return QStringLiteral("Confirmar");
    case u'P':
        return QStringLiteral("Pregunta");
    default:
        return {};
    }
}

QString ScriptedMessages::show(QChar kind, const QString &text, const QString &value) {
    return showTitled(kind, TituloMensaje(kind), text, value);
}

QString ScriptedMessages::showTitled(QChar kind, const QString &title, const QString &text,
                                     const QString &value) {
    shown_.append({kind, text, title});
    if (kind != u'C' && kind != u'P')
        return {};
    if (answers_.empty())
        return kind == u'C' ? QStringLiteral("NO") : value;
    QString reply = answers_.front();
    answers_.pop_front();
    return reply;
}

QStringList ScriptedMessages::texts() const {
    QStringList out;
    for (const Message &m : shown_)
        out << m.text;
    return out;
}

QString ConsoleMessages::show(QChar kind, const QString &text, const QString &value) {
    std::fprintf(stderr, "[%c] %s\n", kind.toLatin1(), text.toLocal8Bit().constData());
    if (kind == u'C')
        return QStringLiteral("NO");
    return kind == u'P' ? value : QString();
}

QString Messenger::takeAccumulated() {
    QString out = accumulated_;
    accumulated_.clear();
    return out;
}

QString Messenger::MostrarMensaje(QChar kind, const QString &rawText, const QString &value) {
    const QString text = TraducirPrefijo(rawText);
    if (accumulate_ && (kind == u'I' || kind == u'A' || kind == u'E')) {
        accumulated_ += text + QStringLiteral("\r\n");
        return {};
    }
    QString reply;
    if (port_) {
        QString title = TituloMensaje(kind);
        QString shownText = text;
        if (translate_) {
            title = translate_(title);
            shownText = translate_(text);
        }
        reply = port_->showTitled(kind, title, shownText, value);
    }
    if (kind == u'C' && reply != QStringLiteral("SI"))
        reply = QStringLiteral("NO");
    if (kind == u'P' && reply.isNull())
        reply = value;
    if (kind == u'E' && terminate_)
        terminate_();
    return reply;
}

} // namespace co
