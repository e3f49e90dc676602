#include "ui/cell_delegate.h"

#include "ui/dataset_model.h"

#include "forms/shown_choices.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <algorithm>

namespace co::ui {

CellDelegate::CellDelegate(DatasetModel &model, QTableView &view, EnlaceCelda enlace)
    : QStyledItemDelegate(&view), model_(model), view_(view), enlace_(std::move(enlace)) {}

namespace {

QPushButton *botonMemo(QWidget *editor) {
    auto *b = qobject_cast<QPushButton *>(editor);
    return b && b->objectName() == QStringLiteral("BotonMemo") ? b : nullptr;
}

} // namespace

QWidget *CellDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const {
    const forms::GridColumn &columna = model_.column(index.column());
    if (!columna.PickList.isEmpty()) {
        auto *lista = new QComboBox(parent);
        lista->setObjectName(QStringLiteral("ListaValores"));
        // Each item shows its text as translated and carries the value as stored.
        for (const QString &valor : columna.PickList)
            lista->addItem(forms::ValorMostrado(columna.PickList, columna.PickListMostrada, valor), valor);
        return lista;
    }
    const forms::Field *f = model_.field(index.column());
    if (f && f->DataType() == TipoCampo::ftMemo) {
        auto *boton = new QPushButton(QStringLiteral(" ..."), parent);
        boton->setObjectName(QStringLiteral("BotonMemo"));
        connect(boton, &QPushButton::clicked, this, [this] {
            if (enlace_.botonMemo)
                enlace_.botonMemo();
        });
        return boton;
    }
    QWidget *editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (auto *line = qobject_cast<QLineEdit *>(editor);
        line && f && f->DataType() == TipoCampo::ftString && f->Size > 0)
        line->setMaxLength(f->Size);
    return editor;
}

void CellDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const {
    if (botonMemo(editor))
        return;
    if (auto *lista = qobject_cast<QComboBox *>(editor)) {
        // A stored value outside the list still shows; choosing replaces it.
        const QString actual = index.data(Qt::EditRole).toString();
        if (lista->findData(actual) < 0 && !actual.isEmpty())
            lista->insertItem(0, actual, actual);
        lista->setCurrentIndex(std::max(0, lista->findData(actual)));
        return;
    }
    QStyledItemDelegate::setEditorData(editor, index);
}

void CellDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                const QModelIndex &index) const {
    if (botonMemo(editor))
        return;
    if (auto *lista = qobject_cast<QComboBox *>(editor)) {
        model->setData(index, lista->currentData().toString(), Qt::EditRole);
        return;
    }
    QStyledItemDelegate::setModelData(editor, model, index);
}

bool CellDelegate::salir(QWidget *editor) {
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

bool CellDelegate::eventFilter(QObject *object, QEvent *event) {
    auto *editor = qobject_cast<QWidget *>(object);
    // The refusal's message takes the focus; the editor stays for the retry.
    if (editor && committing_ && event->type() == QEvent::FocusOut)
        return true;
    if (editor && event->type() == QEvent::KeyPress) {
        auto *k = static_cast<QKeyEvent *>(event);
        const bool leave =
            k->key() == Qt::Key_Tab || k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter;
        if (leave && k->modifiers() == Qt::NoModifier) {
            if (botonMemo(editor)) {
                Q_EMIT closeEditor(editor, NoHint);
                const QModelIndex at = view_.currentIndex();
                if (const QModelIndex next = at.sibling(at.row(), at.column() + 1); next.isValid())
                    view_.setCurrentIndex(next);
                return true;
            }
            return salir(editor);
        }
        if (k->key() == Qt::Key_Escape && k->modifiers() == Qt::NoModifier) {
            Q_EMIT closeEditor(editor, RevertModelCache);
            view_.setFocus();
            if (enlace_.tecla)
                enlace_.tecla(editor, *k);
            return true;
        }
        if (enlace_.tecla && enlace_.tecla(editor, *k))
            return true;
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

} // namespace co::ui
