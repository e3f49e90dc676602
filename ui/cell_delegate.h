#pragma once
// The cell editor of a form's grid: a text column takes no more characters
// than its field holds, and Tab or Enter leave the cell for the next column
// through the view, so that the form's column checks run as on any column
// change (and keep the cell when they refuse). A value the field refuses keeps
// the editor open on the cell, its text selected, so that what is typed next
// replaces it; the message shown meanwhile does not close the editor.

#include <QStyledItemDelegate>

class QTableView;

namespace co::ui {

class DatasetModel;

class CellDelegate : public QStyledItemDelegate {
public:
    CellDelegate(DatasetModel &model, QTableView &view);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;

protected:
    bool eventFilter(QObject *editor, QEvent *event) override;

private:
    DatasetModel &model_;
    QTableView &view_;
    bool committing_ = false;
};

} // namespace co::ui
