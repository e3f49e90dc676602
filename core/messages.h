#pragma once
// The one port through which every message reaches the user.
//
// Kinds: "I" information, "A" warning, "E" error (ends the application),
// "C" confirmation (answers "SI" or "NO"), "P" prompt (answers the typed text;
// `ask` also tells a cancel apart).
// The desktop plugs in the typed dialog; tests and the CLI plug in a scripted
// answerer that records every message.

#include <QString>
#include <QStringList>
#include <deque>
#include <functional>
#include <optional>

namespace co {

struct Message {
    QChar kind;
    QString text;
    QString title;
};

// The title a kind of message is shown under: "Información", "Advertencia",
// "Error", "Confirmar" or "Pregunta"; empty for a plain dialog.
QString TituloMensaje(QChar kind);

class MessagePort {
public:
    virtual ~MessagePort() = default;
    // Shows one message. For "C" returns "SI" or "NO"; for "P" returns the text typed,
    // or `value` unchanged on cancel; otherwise returns empty.
    virtual QString show(QChar kind, const QString &text, const QString &value) = 0;
    // The same with the title to show, already translated; ports that draw a
    // title override this one.
    virtual QString showTitled(QChar kind, const QString &title, const QString &text,
                               const QString &value) {
        (void)title;
        return show(kind, text, value);
    }
    // A "P" prompt whose cancel is told apart from an accepted value: the text
    // accepted, nullopt when cancelled. Ports that cannot cancel answer as `show`.
    virtual std::optional<QString> ask(const QString &title, const QString &text,
                                       const QString &value) {
        return showTitled(u'P', title, text, value);
    }
};

// Records every message; answers "C" and "P" from a queue set by the caller
// ("NO" and the proposed value, accepted, once the queue is empty). A cancel in
// the queue answers "NO", or the unchanged value to `show`.
class ScriptedMessages : public MessagePort {
public:
    QString show(QChar kind, const QString &text, const QString &value) override;
    QString showTitled(QChar kind, const QString &title, const QString &text,
                       const QString &value) override;
    std::optional<QString> ask(const QString &title, const QString &text,
                               const QString &value) override;

    void answer(const QString &reply) { answers_.push_back(reply); }
    void cancel() { answers_.push_back(std::nullopt); }
    const QList<Message> &shown() const { return shown_; }
    QStringList texts() const;
    void clear() { shown_.clear(); }

private:
    std::optional<QString> next(const QString &whenEmpty);

    QList<Message> shown_;
    std::deque<std::optional<QString>> answers_;
};

// Writes every message to standard error; confirmations answer "NO".
class ConsoleMessages : public MessagePort {
public:
    QString show(QChar kind, const QString &text, const QString &value) override;
};

// The common body of all message functions: silent accumulation, the
// application-ending kind "E", and the port.
class Messenger {
public:
    explicit Messenger(MessagePort *port = nullptr) : port_(port) {}

    void setPort(MessagePort *port) { port_ = port; }
    MessagePort *port() const { return port_; }

    // `MensajesAcumulados`: "I", "A" and "E" go to a buffer instead of the port.
    void setAccumulate(bool on) { accumulate_ = on; }
    bool accumulate() const { return accumulate_; }
    QString takeAccumulated();

    // Called after an "E" message was shown; the desktop quits the application.
    void setTerminator(std::function<void()> terminate) { terminate_ = std::move(terminate); }

    // Translates the title and text of each message as it reaches the port.
    void setTranslator(std::function<QString(const QString &)> translate) {
        translate_ = std::move(translate);
    }

    // Texts starting "TRADUCIR:" have their engine phrases put into Spanish first.
    QString MostrarMensaje(QChar kind, const QString &text, const QString &value = {});
    void MensajeI(const QString &text) { MostrarMensaje(u'I', text); }
    void MensajeA(const QString &text) { MostrarMensaje(u'A', text); }
    void MensajeE(const QString &text) { MostrarMensaje(u'E', text); }
    QString MensajeC(const QString &text) { return MostrarMensaje(u'C', text); }
    QString MensajeP(const QString &text, const QString &value = {}) {
        return MostrarMensaje(u'P', text, value);
    }
    // The prompt with `value` proposed: the text accepted, nullopt when
    // cancelled or when there is no port to ask.
    std::optional<QString> InputQuery(const QString &text, const QString &value = {});
    // A plain dialog without a kind, as the statement layer uses for the failing statement.
    void MensajePlano(const QString &text) { MostrarMensaje(u' ', text); }

private:
    // The title and text as shown: engine phrases in Spanish, then translated.
    std::pair<QString, QString> shown(QChar kind, const QString &text) const;

    MessagePort *port_ = nullptr;
    bool accumulate_ = false;
    QString accumulated_;
    std::function<void()> terminate_;
    std::function<QString(const QString &)> translate_;
};

} // namespace co
