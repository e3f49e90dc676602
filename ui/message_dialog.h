#pragma once
// `TfGENEMENS`: the one typed message window, and the message port of the
// desktop program that shows it.
//
// Kinds: "I" Información, "A" Advertencia, "E" Error (accept); "C" Confirmar
// (yes, no, cancel: "SI" only for yes); "P" Pregunta (accept, cancel and an edit
// box: "Password" as the initial value gives an empty masked box; ":SelStart:"
// and ":SelEnd:" select the text between them). Any other kind is a plain
// dialog with the text.

#include "core/messages.h"

#include <QDialog>

class QLabel;
class QLineEdit;

namespace co::ui {

class TfGENEMENS : public QDialog {
public:
    TfGENEMENS(QChar kind, const QString &text, const QString &value, QWidget *parent = nullptr);

    // The answer after exec(): "SI"/"NO" for "C", the text for "P" (or the
    // value unchanged on cancel), empty otherwise.
    QString answer() const { return answer_; }

    static QString titleOf(QChar kind);

private:
    QChar kind_;
    QString value_;
    QString answer_;
    QLineEdit *edit_ = nullptr;
};

class DialogMessages : public MessagePort {
public:
    explicit DialogMessages(QWidget *parent = nullptr) : parent_(parent) {}
    void setParent(QWidget *parent) { parent_ = parent; }
    QString show(QChar kind, const QString &text, const QString &value) override;
    std::optional<QString> ask(const QString &title, const QString &text,
                               const QString &value) override;

private:
    QWidget *parent_;
};

} // namespace co::ui
