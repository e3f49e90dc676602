#pragma once
// A failure raised by the program's own conversions, carrying the engine-style
// English text that the failure handler recognises and puts into Spanish
// ("'abc' is not a valid floating point value", "'x' is not a valid date").

#include <QByteArray>
#include <QString>
#include <exception>

namespace co {

class Failure : public std::exception {
public:
    explicit Failure(QString text) : text_(std::move(text)), utf8_(text_.toUtf8()) {}

    const QString &text() const { return text_; }
    const char *what() const noexcept override { return utf8_.constData(); }

private:
    QString text_;
    QByteArray utf8_;
};

} // namespace co
