#pragma once
// The message port of the command line: messages go to standard error;
// confirmations answer "NO"; other prompts take the value proposed (the user
// code given). The password prompt (the masked one) takes CONTROL_OBRAS_CLAVE,
// else asks on the terminal without echo; with neither, or at the end of the
// input, it says that no password was given and answers nothing, so that
// nothing is checked.
// The server's password, asked when the server refuses the one kept, takes
// CONTROL_OBRAS_CLAVE_SERVIDOR once (a second ask means it was refused too),
// else the terminal, else nothing.

#include "core/messages.h"

namespace co::cli {

class CliMessages : public MessagePort {
public:
    QString show(QChar kind, const QString &text, const QString &value) override;
    std::optional<QString> ask(const QString &title, const QString &text,
                               const QString &value) override;

private:
    bool claveServidorDada_ = false;
};

} // namespace co::cli
