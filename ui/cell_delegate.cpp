#include "ui/cell_delegate.h"

#include "ui/dataset_model.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>

namespace co::ui {

CellDelegate::CellDelegate(DatasetModel &model, QTableView &view)
    : QStyledItemDelegate(&view), model_(model), view_(view) {}

QWidget *CellDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const {
    QWidget *editor = QStyledItemDelegate::createEditor(parent, option, index);
    const forms::Field *f = model_.field(index.column());
    if (auto *line = qobject_cast<QLineEdit *>(editor);
        line && f && f->DataType() == TipoCampo::ftString && f->Size > 0)
        line->setMaxLength(f->Size);
    return editor;
}

bool CellDelegate::eventFilter(QObject *object, QEvent *event) {
    auto *editor = qobject_cast<QWidget *>(object);
    // The refusal's message takes the focus; the editor stays for the retry.
    if (editor && committing_ && event->type() == QEvent::FocusOut)
        return true;
    if (editor && event->type() == QEvent::KeyPress) {
        const auto *k = static_cast<QKeyEvent *>(event);
        const bool leave =
            k->key() == Qt::Key_Tab || k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter;
        if (leave && k->modifiers() == Qt::NoModifier) {
            const QModelIndex at = view_.currentIndex();
            committing_ = true;
            model_.olvidarRechazo();
            Q_EMIT commitData(editor);
            committing_ = false;
            if (model_.escrituraRechazada()) {
                editor->setFocus();
                if (auto *line = qobject_cast<QLineEdit *>(editor))
                    line->selectAll();
                return true;
            }
            Q_EMIT closeEditor(editor, NoHint);
            const QModelIndex next = at.sibling(at.row(), at.column() + 1);
            if (next.isValid())
                view_.setCurrentIndex(next);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

} // namespace co::ui
