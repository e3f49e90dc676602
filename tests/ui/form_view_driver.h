#pragma once
// Drives a FormView through its widgets, as a user at the keyboard and mouse:
// keys go to the focused widget (the grid, then the cell editor it opens),
// buttons are clicked with the mouse. Needs the window shown and active.
#include "ui/form_view.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QPushButton>
#include <QTableView>
#include <QTest>

namespace co::ui::test {

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
