#pragma once
// The two failures a dataset raises.
//  - EAbort: the silent abort. A handler raises it (through Abort()) after its
//    own message; it stops the event chain, shows nothing, and leaves the record
//    as it was (pending when it was pending).
//  - EDatabaseError: an operation the data refused. It carries the engine-style
//    English failure text that the failure handler knows ("Key violation",
//    "Record locked by another user", "Field 'X' must have a value"...), and
//    gives the Spanish message the handler makes of it.

#include <QByteArray>
#include <QString>
#include <exception>

namespace co::forms {

class EAbort : public std::exception {
public:
    const char *what() const noexcept override { return "Operation aborted"; }
};

// Raises the silent abort.
[[noreturn]] inline void Abort() {
    throw EAbort();
}

class EDatabaseError : public std::exception {
public:
    explicit EDatabaseError(QString texto) : texto_(std::move(texto)), utf8_(texto_.toUtf8()) {}
    const char *what() const noexcept override { return utf8_.constData(); }
    // The failure text, in the engine's English words.
    const QString &Texto() const { return texto_; }
    // The message the failure handler shows for it.
    QString Mensaje() const;

private:
    QString texto_;
    QByteArray utf8_;
};

// A value its field cannot hold (field_limits.h), refused before the write. Its
// text is the Spanish message itself; unlike other refused writes it leaves the
// record pending as typed, for correction.
class EValorCampo : public EDatabaseError {
public:
    using EDatabaseError::EDatabaseError;
};

} // namespace co::forms
