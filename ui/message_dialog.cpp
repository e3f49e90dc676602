#include "ui/message_dialog.h"

#include <QDialogButtonBox>
#include <QFont>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace co::ui {

QString TfGENEMENS::titleOf(QChar kind) {
    switch (kind.unicode()) {
    case u'I': return QStringLiteral("Información");
    case u'A': return QStringLiteral("Advertencia");
    case u'E': return QStringLiteral("Error");
    case u'C': return QStringLiteral("Confirmar");
    case u'P': return QStringLiteral("Pregunta");
    default: return QStringLiteral("Control de Obras");
    }
}

TfGENEMENS::TfGENEMENS(QChar kind, const QString &text, const QString &value, QWidget *parent)
    : QDialog(parent), kind_(kind), value_(value) {
    setObjectName(QStringLiteral("fGENEMENS"));
    setWindowTitle(titleOf(kind));
    // The typed window's fixed size; the prompt needs room for its edit box.
    resize(404, kind == u'P' ? 195 : 158);
    auto *layout = new QVBoxLayout(this);
    auto *label = new QLabel(text, this);
    label->setObjectName(QStringLiteral("Mensaje"));
    label->setWordWrap(true);
    if (text.size() > 90) {
        QFont f = label->font();
        f.setPointSize(8);
        label->setFont(f);
    }
    layout->addWidget(label);

    auto *buttons = new QDialogButtonBox(this);
    if (kind == u'C') {
        buttons->setStandardButtons(QDialogButtonBox::Yes | QDialogButtonBox::No | QDialogButtonBox::Cancel);
        buttons->button(QDialogButtonBox::Yes)->setText(QStringLiteral("&Sí"));
        buttons->button(QDialogButtonBox::No)->setText(QStringLiteral("&No"));
        buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("&Cancelar"));
    } else if (kind == u'P') {
        edit_ = new QLineEdit(this);
        edit_->setObjectName(QStringLiteral("EditValor"));
        QString initial = value;
        if (initial == u"Password") {
            edit_->setEchoMode(QLineEdit::Password);
            initial.clear();
        }
        const int start = initial.indexOf(QStringLiteral(":SelStart:"));
        const int end = initial.indexOf(QStringLiteral(":SelEnd:"));
        if (start >= 0 && end > start) {
            const QString before = initial.left(start);
            const QString selected = initial.mid(start + 10, end - start - 10);
            edit_->setText(before + selected + initial.mid(end + 8));
            edit_->setSelection(static_cast<int>(before.size()), static_cast<int>(selected.size()));
        } else {
            edit_->setText(initial);
            edit_->selectAll();
        }
        layout->addWidget(edit_);
        buttons->setStandardButtons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("&Aceptar"));
        buttons->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("&Cancelar"));
    } else {
        buttons->setStandardButtons(QDialogButtonBox::Ok);
        buttons->button(QDialogButtonBox::Ok)->setText(QStringLiteral("&Aceptar"));
    }
    layout->addWidget(buttons);
    answer_ = kind == u'C' ? QStringLiteral("NO") : kind == u'P' ? value : QString();
    connect(buttons, &QDialogButtonBox::clicked, this, [this, buttons](QAbstractButton *b) {
        const QDialogButtonBox::StandardButton which = buttons->standardButton(b);
        if (kind_ == u'C')
            answer_ = which == QDialogButtonBox::Yes ? QStringLiteral("SI") : QStringLiteral("NO");
        else if (kind_ == u'P')
            answer_ = which == QDialogButtonBox::Ok ? edit_->text() : value_;
        which == QDialogButtonBox::Ok || which == QDialogButtonBox::Yes ? accept() : reject();
    });
}

QString DialogMessages::show(QChar kind, const QString &text, const QString &value) {
    TfGENEMENS dialog(kind, text, value, parent_);
    dialog.exec();
    return dialog.answer();
}

std::optional<QString> DialogMessages::ask(const QString &, const QString &text,
                                           const QString &value) {
    TfGENEMENS dialog(u'P', text, value, parent_);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.answer();
}

} // namespace co::ui
