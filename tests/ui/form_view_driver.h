#pragma once
// Drives a FormView through its widgets, as a user at the keyboard and mouse:
// keys go to the focused widget (the grid, then the cell editor it opens),
// buttons are clicked with the mouse. Needs the window shown and active.
//
// Offscreen a modal window never becomes the active window, and the main
// window is not active again after one closed: `DestinoTeclas` finds where a
// keyboard's keys would go all the same (the modal window's focused control,
// else the focused widget, else the focus of the main window), and
// `EnVentanaModal` runs a script inside the next modal window from a timer,
// since the test's own code waits until that window closes.
#include "ui/form_view.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QDialog>
#include <QMainWindow>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <functional>

namespace co::ui::test {

// The program's main window, shown; nullptr when there is none.
inline QWidget *VentanaPrincipal() {
    for (QWidget *w : QApplication::topLevelWidgets())
        if (qobject_cast<QMainWindow *>(w) && w->isVisible())
            return w;
    return nullptr;
}

// The main window active again, as the window system does when a modal one closes.
inline void ReactivarVentanaPrincipal() {
    QWidget *ventana = VentanaPrincipal();
    if (!ventana || QApplication::activeModalWidget() || ventana->isActiveWindow())
        return;
    ventana->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(ventana));
}

inline QWidget *DestinoTeclas() {
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal->focusWidget() ? modal->focusWidget() : modal;
    QWidget *ventana = QApplication::activeWindow();
    if (!ventana)
        ventana = VentanaPrincipal();
    if (!ventana)
        return QApplication::focusWidget();
    return ventana->focusWidget() ? ventana->focusWidget() : ventana;
}

// One key where the keyboard would send it.
inline void PulsarTecla(Qt::Key key, Qt::KeyboardModifiers m = Qt::NoModifier) {
    QWidget *w = DestinoTeclas();
    ASSERT_NE(w, nullptr) << "nothing has the focus";
    QTest::keyClick(w, key, m);
}

// Text typed key by key, each to wherever the keyboard sends it then.
inline void Teclear(const QString &texto) {
    for (const QChar c : texto) {
        QWidget *w = DestinoTeclas();
        ASSERT_NE(w, nullptr) << "nothing has the focus";
        QTest::keyClicks(w, QString(c));
    }
}

// Runs `guion` in the next modal window once it shows, then closes it if the
// script left it open (rejected). Returns a flag that says whether one showed;
// `accion` is what opens it.
inline bool EnVentanaModal(const std::function<void()> &accion,
                           const std::function<void(QWidget &)> &guion) {
    bool vista = false;
    QTimer::singleShot(0, [&] {
        QWidget *modal = QApplication::activeModalWidget();
        if (!modal)
            return;
        vista = true;
        guion(*modal);
        if (modal->isVisible())
            if (auto *d = qobject_cast<QDialog *>(modal))
                d->reject();
    });
    accion();
    ReactivarVentanaPrincipal();
    return vista;
}

class FormViewDriver {
public:
    explicit FormViewDriver(FormView &view) : view_(view) {}

    QTableView &grid(const QString &name = QStringLiteral("DBGrid1")) const {
        return *view_.grid(name);
    }
    // Types into the grid's current cell: the first key opens the cell editor,
    // the rest go into it, and `leave` (Tab, Enter, Down...) leaves the cell.
    void typeInCell(const QString &text, Qt::Key leave = Qt::Key_Tab,
                    const QString &name = QStringLiteral("DBGrid1")) {
        QTableView &g = grid(name);
        g.setFocus();
        QTest::keyClick(&g, text.front().toLatin1());
        QWidget *editor = QApplication::focusWidget();
        if (editor && editor != &g) {
            QTest::keyClicks(editor, text.mid(1));
            QTest::keyClick(editor, leave);
        } else {
            QTest::keyClick(&g, leave);
        }
    }
    void click(const QString &button) {
        auto *b = qobject_cast<QPushButton *>(view_.widgetFor(button));
        ASSERT_NE(b, nullptr) << button.toStdString();
        QTest::mouseClick(b, Qt::LeftButton);
    }
    QString cell(int row, int column, const QString &name = QStringLiteral("DBGrid1")) const {
        QAbstractItemModel *m = grid(name).model();
        return m->data(m->index(row, column)).toString();
    }
    int rows(const QString &name = QStringLiteral("DBGrid1")) const {
        return grid(name).model()->rowCount();
    }

private:
    FormView &view_;
};

} // namespace co::ui::test
