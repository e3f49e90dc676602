#pragma once
// The cell editor of a form's grid: a text column takes no more characters
// than its field holds, and a column with permitted values offers them in a
// drop-down list. Tab or Enter leave the cell for the next column through the
// view, so that the form's column checks run as on any column change (and
// keep the cell when they refuse). A value the field refuses keeps the editor
// open on the cell, its text selected, so that what is typed next replaces it;
// the message shown meanwhile does not close the editor.
//
// Inside an open editor the other keys still reach the form first, as on any
// control of the form: `teclas` gives a key press to the key map and the
// character rule and answers true when they consumed it. Esc closes the
// editor with the cell's stored text before the key map cancels the record.
// A memo cell's editor is a " ..." button (`BotonMemo`) that opens the memo's
// text window through `botonMemo`; the cell itself is never typed into.

#include <QStyledItemDelegate>
#include <functional>

class QKeyEvent;

class QTableView;

namespace co::ui {

class DatasetModel;

struct EnlaceCelda {
    // A key press in an open editor; true when the form consumed it.
    std::function<bool(QWidget *editor, QKeyEvent &key)> tecla;
    // The button of a memo cell was clicked.
    std::function<void()> botonMemo;
};

class CellDelegate : public QStyledItemDelegate {
public:
    CellDelegate(DatasetModel &model, QTableView &view, EnlaceCelda enlace = {});

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;

protected:
    bool eventFilter(QObject *editor, QEvent *event) override;

private:
    // Tab or Enter: the value goes to the field and the next column is selected.
    bool salir(QWidget *editor);

    DatasetModel &model_;
    QTableView &view_;
    EnlaceCelda enlace_;
    bool committing_ = false;
};

} // namespace co::ui
