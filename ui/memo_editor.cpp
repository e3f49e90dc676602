#include "ui/memo_editor.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace co::ui {

std::optional<QString> EditarTextoMemo(QWidget *parent, const QString &titulo,
                                       const QString &texto) {
    QDialog ventana(parent);
    ventana.setObjectName(QStringLiteral("EditorMemo"));
    ventana.setWindowTitle(titulo);
    auto *layout = new QVBoxLayout(&ventana);
    auto *memo = new QPlainTextEdit(&ventana);
    memo->setObjectName(QStringLiteral("Memo"));
    memo->setPlainText(texto);
    memo->setMinimumSize(420, 220);
    layout->addWidget(memo, 1);
    auto *botones = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &ventana);
    botones->button(QDialogButtonBox::Ok)->setText(QStringLiteral("&Aceptar"));
    botones->button(QDialogButtonBox::Ok)->setObjectName(QStringLiteral("pbAceptar"));
    botones->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("&Cancelar"));
    botones->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("pbCancelar"));
    // Enter belongs to the text, not to a default button.
    for (QAbstractButton *b : botones->buttons())
        if (auto *p = qobject_cast<QPushButton *>(b)) {
            p->setAutoDefault(false);
            p->setDefault(false);
        }
    QObject::connect(botones, &QDialogButtonBox::accepted, &ventana, &QDialog::accept);
    QObject::connect(botones, &QDialogButtonBox::rejected, &ventana, &QDialog::reject);
    layout->addWidget(botones);
    memo->setFocus();
    if (ventana.exec() != QDialog::Accepted)
        return std::nullopt;
    return memo->toPlainText();
}

} // namespace co::ui
