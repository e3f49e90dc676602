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
    if (kind == u'P')
        return ask(title, text, value).value_or(value);
    shown_.append({kind, text, title});
    if (kind != u'C')
        return {};
    return next(QStringLiteral("NO")).value_or(QStringLiteral("NO"));
}

std::optional<QString> ScriptedMessages::ask(const QString &title, const QString &text,
                                             const QString &value) {
    shown_.append({u'P', text, title});
    return next(value);
}

std::optional<QString> ScriptedMessages::next(const QString &whenEmpty) {
    if (answers_.empty())
        return whenEmpty;
    // Taken apart: gcc 12 at -O3 warns falsely on copying an optional QString.
    const bool cancelled = !answers_.front().has_value();
    const QString reply = answers_.front().value_or(QString());
    answers_.pop_front();
    if (cancelled)
        return std::nullopt;
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

std::pair<QString, QString> Messenger::shown(QChar kind, const QString &rawText) const {
    const QString text = TraducirPrefijo(rawText);
    if (!translate_)
        return {TituloMensaje(kind), text};
    return {translate_(TituloMensaje(kind)), translate_(text)};
}

QString Messenger::MostrarMensaje(QChar kind, const QString &rawText, const QString &value) {
    if (accumulate_ && (kind == u'I' || kind == u'A' || kind == u'E')) {
        accumulated_ += TraducirPrefijo(rawText) + QStringLiteral("\r\n");
        return {};
    }
    QString reply;
    if (port_) {
        const auto [title, text] = shown(kind, rawText);
        reply = port_->showTitled(kind, title, text, value);
    }
    if (kind == u'C' && reply != QStringLiteral("SI"))
        reply = QStringLiteral("NO");
    if (kind == u'P' && reply.isNull())
        reply = value;
    if (kind == u'E' && terminate_)
        terminate_();
    return reply;
}

std::optional<QString> Messenger::InputQuery(const QString &rawText, const QString &value) {
    if (!port_)
        return std::nullopt;
    const auto [title, text] = shown(u'P', rawText);
    return port_->ask(title, text, value);
}

} // namespace co
