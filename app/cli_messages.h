#pragma once
// The message port of the command line: messages go to standard error;
// confirmations answer "NO"; the user-code prompt takes the code given; the
// password prompt takes CONTROL_OBRAS_CLAVE, else asks on the terminal without
// echo, else gives up.

#include "core/messages.h"

namespace co::cli {

class CliMessages : public MessagePort {
public:
    QString show(QChar kind, const QString &text, const QString &value) override;
};

} // namespace co::cli
