#include "ui/form_view.h"

#include "forms/key_map.h"
#include "ui/dataset_model.h"
#include "ui/key_routing.h"

#include <QCoreApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace co::ui {

using forms::ComponentKind;

FormView::FormView(std::unique_ptr<forms::Form> form, forms::RutinasFormulario &rutinas,
                   QWidget *parent)
    : QWidget(parent), form_(std::move(form)), rutinas_(rutinas) {
    setObjectName(form_->Name);
    setWindowTitle(form_->Caption);
    build();
    refresh();
}

FormView::~FormView() = default;

bool FormView::run(const std::function<void()> &action) {
    const bool ok = rutinas_.Ejecutar(action);
    refresh();
    // A form that closed itself (a "Salir" or "Grabar" button) takes its window along,
    // once the click that closed it has returned.
    if (form_->Closed())
        QMetaObject::invokeMethod(
            this,
            [this] {
                QWidget *ventana = parentWidget() ? parentWidget() : this;
                ventana->close();
            },
            Qt::QueuedConnection);
    return ok;
}

// A data control with its caption as a label on its left.
static void addLabelled(QBoxLayout *fields, QWidget *w, const QString &caption, QWidget *parent) {
    if (caption.isEmpty()) {
        fields->addWidget(w);
        return;
    }
    auto *row = new QHBoxLayout;
    auto *label = new QLabel(caption, parent);
    label->setMinimumWidth(220);
    label->setBuddy(w);
    row->addWidget(label);
    row->addWidget(w, 1);
    fields->addLayout(row);
}

void FormView::build() {
    auto *layout = new QVBoxLayout(this);
    auto *menus = new QMenuBar(this);
    QMenu *ficha = menus->addMenu(QStringLiteral("&Ficha"));
    layout->setMenuBar(menus);
    auto *buttons = new QHBoxLayout;
    auto *fields = new QVBoxLayout;
    QTabWidget *tabs = nullptr;
    for (forms::Component *c : form_->Components()) {
        QWidget *w = nullptr;
        switch (c->Kind()) {
        case ComponentKind::MenuItem: {
            QAction *a = ficha->addAction(c->Caption);
            a->setObjectName(c->Name());
            connect(a, &QAction::triggered, this,
                    [this, c] { run([&] { form_->Click(c->Name()); }); });
            break;
        }
        case ComponentKind::Button: {
            auto *b = new QPushButton(c->Caption, this);
            connect(b, &QPushButton::clicked, this,
                    [this, c] { run([&] { form_->Click(c->Name()); }); });
            buttons->addWidget(b);
            w = b;
            break;
        }
        case ComponentKind::DBGrid: {
            auto *view = new QTableView(this);
            bindGrid(*static_cast<forms::DBGrid *>(c), view);
            fields->addWidget(view, 1);
            w = view;
            break;
        }
        case ComponentKind::DBEdit:
        case ComponentKind::Edit: {
            auto *e = new QLineEdit(this);
            auto *dc = dynamic_cast<forms::DataControl *>(c);
            connect(e, &QLineEdit::textEdited, this, [this, c, dc](const QString &t) {
                if (!dc || !dc->BoundField()) {
                    c->Text = t; // a plain edit keeps its text in the form
                    return;
                }
                run([&] {
                    if (!dc->DataSet()->IsPending())
                        dc->DataSet()->Edit();
                    dc->BoundField()->SetAsString(t);
                });
            });
            addLabelled(fields, e, c->Caption, this);
            w = e;
            break;
        }
        case ComponentKind::DBComboBox:
        case ComponentKind::ComboBox: {
            auto *box = new QComboBox(this);
            box->setEditable(true);
            auto *dc = dynamic_cast<forms::DataControl *>(c);
            if (dc)
                box->addItems(dc->Items);
            connect(box, &QComboBox::currentTextChanged, this, [this, dc](const QString &t) {
                if (refreshing_ || !dc || !dc->BoundField())
                    return;
                run([&] {
                    if (!dc->DataSet()->IsPending())
                        dc->DataSet()->Edit();
                    dc->BoundField()->SetAsString(t);
                });
            });
            addLabelled(fields, box, c->Caption, this);
            w = box;
            break;
        }
        case ComponentKind::CheckBox: {
            auto *box = new QCheckBox(c->Caption, this);
            connect(box, &QCheckBox::toggled, this, [this, c](bool on) {
                if (!refreshing_)
                    c->Checked = on;
            });
            fields->addWidget(box);
            w = box;
            break;
        }
        case ComponentKind::Label:
            w = new QLabel(c->Caption, this);
            fields->addWidget(w);
            break;
        case ComponentKind::TabSheet:
            if (!tabs) {
                tabs = new QTabWidget(this);
                fields->addWidget(tabs);
            }
            w = new QWidget(tabs);
            tabs->addTab(w, c->Caption);
            break;
        default:
            break;
        }
        if (w) {
            w->setObjectName(c->Name());
            w->installEventFilter(this);
            widgets_.insert(c, w);
            components_.insert(w, c);
        }
    }
    layout->addLayout(fields, 1);
    layout->addLayout(buttons);
    status_ = new QLabel(this);
    status_->setObjectName(QStringLiteral("StatusBar1"));
    layout->addWidget(status_);
}

void FormView::bindGrid(forms::DBGrid &grid, QTableView *view) {
    auto *model = new DatasetModel(
        grid, [this](const auto &a) { return rutinas_.Ejecutar(a); }, view);
    models_.insert(&grid, model);
    view->setModel(model);
    view->setSelectionBehavior(QAbstractItemView::SelectItems);
    view->setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::DoubleClicked |
                          QAbstractItemView::EditKeyPressed);
    view->viewport()->installEventFilter(this);
    connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this, &grid, view, model](const QModelIndex &now, const QModelIndex &was) {
                if (refreshing_ || !now.isValid())
                    return;
                bool ok = true;
                if (was.isValid() && now.column() != was.column())
                    ok = rutinas_.Ejecutar([&] {
                        if (!form_->SelectColumn(grid, model->gridColumn(now.column())))
                            forms::Abort();
                    });
                if (ok && now.row() != was.row())
                    ok = model->moveTo(now.row());
                refresh();
                if (!ok && was.isValid())
                    view->setCurrentIndex(was);
            });
}

QWidget *FormView::widgetFor(const QString &component) const {
    return widgets_.value(form_->FindComponent(component));
}

QTableView *FormView::grid(const QString &name) const {
    return qobject_cast<QTableView *>(widgetFor(name));
}

QString FormView::statusText() const {
    return status_->text();
}

void FormView::refresh() {
    if (refreshing_)
        return;
    refreshing_ = true;
    setWindowTitle(form_->Caption);
    for (auto it = widgets_.cbegin(); it != widgets_.cend(); ++it) {
        forms::Component *c = it.key();
        it.value()->setEnabled(c->Enabled);
        it.value()->setVisible(c->Visible);
        auto *dc = dynamic_cast<forms::DataControl *>(c);
        forms::Field *f = dc ? dc->BoundField() : nullptr;
        if (auto *e = qobject_cast<QLineEdit *>(it.value()); e && !e->hasFocus() && (f || !dc))
            e->setText(f ? f->AsString() : c->Text);
        if (auto *box = qobject_cast<QCheckBox *>(it.value()))
            box->setChecked(c->Checked);
        if (auto *b = qobject_cast<QComboBox *>(it.value()); b && f)
            b->setCurrentText(f->AsString());
    }
    for (QAction *a : findChildren<QAction *>())
        if (forms::Component *c = form_->FindComponent(a->objectName()))
            a->setEnabled(c->Enabled);
    for (auto it = models_.cbegin(); it != models_.cend(); ++it) {
        forms::Dataset *d = it.key()->DataSet();
        auto *view = qobject_cast<QTableView *>(widgets_.value(it.key()));
        if (!d || !view)
            continue;
        if (!d->IsPending() || it.value()->currentRow() >= it.value()->rowCount())
            it.value()->reload();
        const int row = it.value()->currentRow();
        const int col = it.value()->modelColumn(it.key()->SelectedIndex);
        if (row >= 0 && col >= 0 && !view->indexWidget(view->currentIndex()))
            view->setCurrentIndex(it.value()->index(row, col));
    }
    for (forms::Dataset *d : form_->Datasets())
        if (d->Name() == QStringLiteral("Table1")) {
            status_->setText(forms::NombreEstado(d->State()) + QStringLiteral("  ") +
                             QString::number(d->Active() ? d->RecNo() : 0));
            break;
        }
    refreshing_ = false;
}

bool FormView::eventFilter(QObject *watched, QEvent *event) {
    auto *w = qobject_cast<QWidget *>(watched);
    if (w && !components_.contains(w) && w->parentWidget())
        w = w->parentWidget();
    forms::Component *c = components_.value(w);
    if (!c)
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::FocusIn && !refreshing_) {
        forms::Component *before = form_->ActiveControl();
        if (!run([&] {
                if (!form_->SetFocus(c))
                    forms::Abort();
            }) &&
            before && widgets_.value(before))
            widgets_.value(before)->setFocus();
    } else if (event->type() == QEvent::KeyPress) {
        auto *k = static_cast<QKeyEvent *>(event);
        form_->SetFocus(c);
        const Tecla tecla{k->key(), k->modifiers()};
        bool consumed = false;
        run([&] { consumed = EnviarTeclaAlFormulario(*form_, rutinas_, tecla); });
        if (consumed)
            return true;
        if (!k->text().isEmpty()) {
            const QChar dado = k->text().front();
            const QChar queda = EnviarCaracterAlFormulario(*form_, dado, tecla);
            if (queda.isNull())
                return true;
            if (queda != dado) {
                QKeyEvent otra(QEvent::KeyPress, k->key(), k->modifiers(), QString(queda));
                QCoreApplication::sendEvent(watched, &otra);
                return true;
            }
        }
    }
    return QWidget::eventFilter(watched, event);
}

void FormView::closeEvent(QCloseEvent *event) {
    bool closed = form_->Closed();
    if (!closed)
        run([&] { closed = form_->Close(); });
    if (closed)
        event->accept();
    else
        event->ignore();
}

} // namespace co::ui
