// Qt's own dialogs, drawn by Qt rather than by the program, speak Spanish under
// the desktop application object.
#include "ui/application.h"

#include "support/gtest_qt_printing.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

namespace co::ui {
namespace {

QString sinAmpersand(QString texto) {
    return texto.remove(u'&');
}

TEST(QtDialogs, TheFileDialogsButtonsAndLabelsAreInSpanish) {
    auto *app = static_cast<ControlObrasApplication *>(QCoreApplication::instance());
    ASSERT_TRUE(app->TraduccionQtCargada())
        << "Qt's Spanish translation (qtbase_es) is missing: scripts/bootstrap installs it";
    QFileDialog dialog(nullptr, QStringLiteral("Abrir"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    auto *botones = dialog.findChild<QDialogButtonBox *>();
    ASSERT_NE(botones, nullptr);
    ASSERT_NE(botones->button(QDialogButtonBox::Cancel), nullptr);
    EXPECT_EQ(sinAmpersand(botones->button(QDialogButtonBox::Cancel)->text()),
              QStringLiteral("Cancelar"));
    EXPECT_EQ(sinAmpersand(botones->button(QDialogButtonBox::Open)->text()),
              QStringLiteral("Abrir"));
    QStringList etiquetas;
    for (const QLabel *l : dialog.findChildren<QLabel *>())
        etiquetas << l->text();
    EXPECT_FALSE(etiquetas.contains(QStringLiteral("Look in:")))
        << etiquetas.join(u'|').toStdString();
    EXPECT_FALSE(etiquetas.contains(QStringLiteral("File name:")))
        << etiquetas.join(u'|').toStdString();
}

} // namespace
} // namespace co::ui
