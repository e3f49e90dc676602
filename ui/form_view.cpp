#include "ui/form_view.h"

#include "forms/field_search.h"
#include "forms/key_map.h"
#include "forms/shown_choices.h"
#include "ui/cell_delegate.h"
#include "ui/dataset_model.h"
#include "ui/font_dialog.h"
#include "ui/form_printing.h"
#include "ui/grid_columns.h"
#include "ui/grid_value_menu.h"
#include "ui/key_routing.h"
#include "ui/list_window.h"
#include "ui/memo_editor.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QCoreApplication>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace co::ui {

using forms::ComponentKind;

FormView::FormView(std::unique_ptr<forms::Form> form, forms::RutinasFormulario &rutinas,
                   QWidget *parent)
    : QWidget(parent), form_(std::move(form)), rutinas_(rutinas) {
    setObjectName(form_->Name);
    setWindowTitle(form_->Caption);
    build();
    rutinas_.Ventanas.DialogoFuente = [this](forms::Component &c) {
        if (QWidget *w = widgets_.value(&c))
            DialogoFuente(*w, c.Kind() == ComponentKind::DBGrid);
    };
    rutinas_.Ventanas.VisorHistorial = [this](const HistorialAccesos &h) {
        VerLista(this, h.definicion, h.lineas);
    };
    rutinas_.Ventanas.ImprimirFormulario = [this](bool paginaCompleta) {
        ImprimirVentana(*this, paginaCompleta);
    };
    rutinas_.Ventanas.EditorMemo = [this](const QString &titulo, const QString &texto) {
        return EditarTextoMemo(this, titulo, texto);
    };
    // A failure that closes its sender: the window goes once the handler returns.
    rutinas_.Origen.cerrarFormulario = [this] {
        QWidget *window = parentWidget() ? parentWidget() : this;
        QTimer::singleShot(0, window, &QWidget::close);
    };
    refresh();
}

FormView::~FormView() {
    rutinas_.Ventanas.DialogoFuente = nullptr;
    rutinas_.Origen.cerrarFormulario = nullptr;
    rutinas_.Ventanas.VisorHistorial = nullptr;
    rutinas_.Ventanas.ImprimirFormulario = nullptr;
    rutinas_.Ventanas.EditorMemo = nullptr;
}

bool FormView::run(const std::function<void()> &action) {
    const bool ok = rutinas_.Ejecutar(action);
    if (form_->Closed()) {
        // The form closed itself (exit button, post and close): so does its window.
        QWidget *window = parentWidget() ? parentWidget() : this;
        QTimer::singleShot(0, window, &QWidget::close);
        return ok;
    }
    refresh();
    return ok;
}

void FormView::build() {
    auto *layout = new QVBoxLayout(this);
    auto *menus = new QMenuBar(this);
    menus_ = menus;
    QMenu *ficha = menus->addMenu(QStringLiteral("&Ficha"));
    layout->setMenuBar(menus);
    auto *buttons = new QHBoxLayout;
    auto *body = new QVBoxLayout;
    // Where a control goes: the page it sits on, else the body of the form.
    QHash<forms::Component *, QVBoxLayout *> pages;
    QHash<QVBoxLayout *, QFormLayout *> labelled;
    QHash<QVBoxLayout *, QTabWidget *> tabs;
    auto area = [&](forms::Component *c) { return pages.value(c->Parent, body); };
    auto place = [&](forms::Component *c, QWidget *w) {
        QVBoxLayout *box = area(c);
        if (c->Caption.isEmpty()) {
            box->addWidget(w);
            return;
        }
        QFormLayout *&rows = labelled[box];
        if (!rows) {
            rows = new QFormLayout;
            box->addLayout(rows);
        }
        rows->addRow(c->Caption, w);
    };
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
            area(c)->addWidget(view, 1);
            w = view;
            break;
        }
        case ComponentKind::DBEdit:
        case ComponentKind::Edit: {
            auto *e = new QLineEdit(this);
            connect(e, &QLineEdit::textEdited, this, [this, c](const QString &t) { typed(*c, t); });
            place(c, e);
            w = e;
            break;
        }
        case ComponentKind::DBMemo:
        case ComponentKind::Memo: {
            auto *m = new QPlainTextEdit(this);
            // Tab leaves the memo as it leaves any control; Enter makes a new line.
            m->setTabChangesFocus(true);
            m->setMinimumHeight(m->fontMetrics().lineSpacing() * 5);
            connect(m, &QPlainTextEdit::textChanged, this, [this, c, m] {
                if (!refreshing_)
                    typed(*c, TextoMemo(m->toPlainText()));
            });
            place(c, m);
            w = m;
            break;
        }
        case ComponentKind::DBComboBox:
        case ComponentKind::ComboBox: {
            auto *box = new QComboBox(this);
            box->setEditable(true);
            auto *dc = dynamic_cast<forms::DataControl *>(c);
            if (dc)
                box->addItems(dc->ItemsMostrados.isEmpty() ? dc->Items : dc->ItemsMostrados);
            // The list shows its translated texts; the field keeps the stored value.
            connect(box, &QComboBox::currentTextChanged, this, [this, c, dc](const QString &t) {
                if (!refreshing_)
                    typed(*c, dc ? forms::ValorGuardado(dc->Items, dc->ItemsMostrados, t) : t);
            });
            place(c, box);
            w = box;
            break;
        }
        case ComponentKind::CheckBox: {
            auto *box = new QCheckBox(c->Caption, this);
            connect(box, &QCheckBox::toggled, this, [this, c](bool on) {
                if (!refreshing_)
                    c->Checked = on;
            });
            area(c)->addWidget(box);
            w = box;
            break;
        }
        case ComponentKind::Label:
            w = new QLabel(c->Caption, this);
            area(c)->addWidget(w);
            break;
        case ComponentKind::TabSheet: {
            QVBoxLayout *box = area(c);
            QTabWidget *&tab = tabs[box];
            if (!tab) {
                tab = new QTabWidget(this);
                box->addWidget(tab, 1);
            }
            w = new QWidget(tab);
            pages.insert(c, new QVBoxLayout(w));
            tab->addTab(w, c->Caption);
            break;
        }
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
    // Pages of fields keep them at the top; a grid takes the room itself.
    for (auto it = pages.cbegin(); it != pages.cend(); ++it)
        if (!widgets_.value(it.key())->findChild<QTableView *>())
            it.value()->addStretch(1);
    layout->addLayout(body, 1);
    layout->addLayout(buttons);
    status_ = new QLabel(this);
    status_->setObjectName(QStringLiteral("StatusBar1"));
    layout->addWidget(status_);
    // A window given the focus hands it to its grid, else to its first control.
    QWidget *primero = nullptr;
    for (forms::Component *c : form_->Components()) {
        QWidget *w = widgets_.value(c);
        if (!w || w->focusPolicy() == Qt::NoFocus || !c->Visible || !c->Enabled)
            continue;
        if (qobject_cast<QTableView *>(w)) {
            primero = w;
            break;
        }
        if (!primero)
            primero = w;
    }
    if (primero)
        setFocusProxy(primero);
}

// Memo lines end in CR LF, as the key=value blocks and texts are kept.
QString FormView::TextoMemo(QString texto) {
    texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    return texto.replace(u'\n', QStringLiteral("\r\n"));
}

// Typing into a data control writes its field (auto edit) and runs its change event.
void FormView::typed(forms::Component &control, const QString &text) {
    auto *dc = dynamic_cast<forms::DataControl *>(&control);
    if (!dc)
        control.Text = text; // a plain control keeps its text in the form
    run([&] {
        if (dc && dc->BoundField()) {
            if (!dc->DataSet()->IsPending())
                dc->DataSet()->Edit();
            dc->BoundField()->SetAsString(text);
        }
        form_->RunEvent(control, QStringLiteral("OnChange"));
    });
}

void FormView::bindGrid(forms::DBGrid &grid, QTableView *view) {
    auto *model = new DatasetModel(
        grid, [this](const auto &a) { return rutinas_.Ejecutar(a); }, view);
    models_.insert(&grid, model);
    view->setModel(model);
    EnlaceCelda enlace;
    enlace.tecla = [this, &grid](QWidget *editor, QKeyEvent &k) {
        return teclaAlFormulario(grid, editor, k);
    };
    enlace.botonMemo = [this, &grid] {
        run([&] {
            form_->SetFocus(&grid);
            form_->CallHandler(grid.Name() + QStringLiteral("EditButtonClick"), &grid);
        });
    };
    view->setItemDelegate(new CellDelegate(*model, *view, std::move(enlace)));
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(view, &QWidget::customContextMenuRequested, this, [this, &grid, view, model](QPoint p) {
        MenuFiltrosValor(*view, *model, grid, rutinas_.Datos().sesion().mensajes(),
                         [this](const std::function<void()> &a) { return rutinas_.Ejecutar(a); }, p);
        refresh();
    });
    ajustarCabecera(*view, *model);
    QHeaderView *header = view->horizontalHeader();
    header->setSectionsMovable(true);
    connect(header, &QHeaderView::sectionResized, this, [this, model](int section, int, int width) {
        if (!ajustando_)
            model->anchoUsuario(section, width);
    });
    connect(header, &QHeaderView::sectionMoved, this, [this, view, model](int, int from, int to) {
        if (ajustando_)
            return;
        model->moverColumna(from, to);
        ajustarCabecera(*view, *model);
        refresh();
    });
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

void FormView::ajustarCabecera(QTableView &view, DatasetModel &model) {
    ajustando_ = true;
    // The model's order is the columns' order: the header shows it as it is.
    QHeaderView *header = view.horizontalHeader();
    for (int i = 0; i < header->count(); ++i)
        if (header->logicalIndex(i) != i)
            header->moveSection(header->visualIndex(i), i);
    AjustarAnchosColumnas(view, model);
    ajustando_ = false;
}

// What the user is doing with the main table, in words.
QString FormView::TextoEstado(forms::Dataset &d) {
    if (!d.Active())
        return {};
    switch (d.State()) {
    case forms::DatasetState::Insert:
        return QStringLiteral("Agregando registro");
    case forms::DatasetState::Edit:
        return QStringLiteral("Modificando registro %1").arg(d.RecNo());
    default:
        return d.IsEmpty() ? QStringLiteral("Sin registros")
                           : QStringLiteral("Registro %1").arg(d.RecNo());
    }
}

// Wide enough for every grid's columns and tall enough for some rows; the
// main window bounds it by its work area.
QSize FormView::sizeHint() const {
    QSize s = QWidget::sizeHint();
    constexpr int kFilas = 14;
    for (auto it = models_.cbegin(); it != models_.cend(); ++it) {
        const auto *view = qobject_cast<QTableView *>(widgets_.value(it.key()));
        if (!view || !it.key()->Visible)
            continue;
        int ancho = view->verticalHeader()->sizeHint().width() + 2 * view->frameWidth() +
                    view->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        for (int c = 0; c < it.value()->columnCount(); ++c)
            ancho += view->isColumnHidden(c) ? 0 : view->columnWidth(c);
        const int alto = view->horizontalHeader()->sizeHint().height() + 2 * view->frameWidth() +
                         view->verticalHeader()->defaultSectionSize() * kFilas;
        const QMargins m = layout()->contentsMargins();
        s.setWidth(std::max(s.width(), ancho + m.left() + m.right()));
        s.setHeight(s.height() + std::max(0, alto - view->sizeHint().height()));
    }
    // Every tab of a page control on show, without scrolling the tabs.
    const QMargins m = layout()->contentsMargins();
    for (const QTabWidget *paginas : findChildren<QTabWidget *>())
        s.setWidth(std::max(s.width(), paginas->tabBar()->sizeHint().width() + 8 + m.left() + m.right()));
    return s;
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
        if (c->Kind() == ComponentKind::TabSheet) {
            // A page is shown by its tab: showing it by hand would lay it over the current one.
            for (QWidget *p = it.value()->parentWidget(); p; p = p->parentWidget())
                if (auto *tab = qobject_cast<QTabWidget *>(p)) {
                    const int i = tab->indexOf(it.value());
                    tab->setTabVisible(i, c->Visible);
                    tab->setTabEnabled(i, c->Enabled);
                    break;
                }
            continue;
        }
        it.value()->setEnabled(c->Enabled);
        it.value()->setVisible(c->Visible);
        auto *dc = dynamic_cast<forms::DataControl *>(c);
        forms::Field *f = dc ? dc->BoundField() : nullptr;
        if (auto *e = qobject_cast<QLineEdit *>(it.value())) {
            e->setReadOnly(c->ReadOnly);
            if (f)
                e->setAlignment((f->Alignment & Qt::AlignHorizontal_Mask) | Qt::AlignVCenter);
            if (!e->hasFocus() && (f || !dc))
                e->setText(f ? f->AsString() : c->Text);
        }
        if (auto *m = qobject_cast<QPlainTextEdit *>(it.value())) {
            m->setReadOnly(c->ReadOnly);
            const QString texto = TextoMemo(f ? f->AsString() : c->Text);
            if (!m->hasFocus() && TextoMemo(m->toPlainText()) != texto) {
                QString lineas = texto;
                m->setPlainText(lineas.replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
            }
        }
        if (auto *box = qobject_cast<QCheckBox *>(it.value()))
            box->setChecked(c->Checked);
        if (auto *b = qobject_cast<QComboBox *>(it.value()); b && f)
            b->setCurrentText(dc ? forms::ValorMostrado(dc->Items, dc->ItemsMostrados, f->AsString())
                                 : f->AsString());
    }
    for (QAction *a : findChildren<QAction *>())
        if (forms::Component *c = form_->FindComponent(a->objectName())) {
            a->setEnabled(c->Enabled);
            a->setText(c->Caption);
            a->setCheckable(a->isCheckable() || c->Checked);
            a->setChecked(c->Checked);
        }
    for (auto it = models_.cbegin(); it != models_.cend(); ++it) {
        forms::Dataset *d = it.key()->DataSet();
        auto *view = qobject_cast<QTableView *>(widgets_.value(it.key()));
        if (!d || !view)
            continue;
        if (it.value()->columnasCambiadas()) {
            it.value()->rehacerColumnas();
            ajustarCabecera(*view, *it.value());
        }
        view->setSelectionBehavior(it.key()->MultiSelect ? QAbstractItemView::SelectRows
                                                         : QAbstractItemView::SelectItems);
        view->setSelectionMode(it.key()->MultiSelect ? QAbstractItemView::MultiSelection
                                                     : QAbstractItemView::ExtendedSelection);
        it.value()->sync();
        if (!d->IsPending() || it.value()->currentRow() >= it.value()->rowCount())
            it.value()->reload();
        const int row = it.value()->currentRow();
        const int col = it.value()->modelColumn(it.key()->SelectedIndex);
        if (row >= 0 && col >= 0 && !view->indexWidget(view->currentIndex()))
            view->setCurrentIndex(it.value()->index(row, col));
    }
    for (forms::Dataset *d : form_->Datasets())
        if (d->Name() == QStringLiteral("Table1")) {
            status_->setText(TextoEstado(*d));
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
    } else if (event->type() == QEvent::MouseButtonDblClick) {
        // The form's double click (a search, mostly) wins over the cell editor.
        bool acted = false;
        run([&] { acted = form_->SetFocus(c) && forms::DobleClic(*form_, rutinas_, *c); });
        if (acted)
            return true;
    } else if (event->type() == QEvent::KeyPress) {
        auto *k = static_cast<QKeyEvent *>(event);
        if (k == pasada_)
            return QWidget::eventFilter(watched, event);
        if (letra(*k, true))
            return true;
        if (teclaAlFormulario(*c, watched, *k))
            return true;
        if (qobject_cast<QTableView *>(w) && !k->text().isEmpty()) {
            // The grid hands a typed key on to the cell editor it opens: that one
            // has been through the form already.
            const QKeyEvent *antes = std::exchange(pasada_, k);
            static_cast<QObject *>(watched)->event(k);
            pasada_ = antes;
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool FormView::teclaAlFormulario(forms::Component &c, QObject *destino, QKeyEvent &k) {
    if (&k == pasada_)
        return false;
    if (form_->ActiveControl() != &c)
        form_->SetFocus(&c);
    const Tecla tecla{k.key(), k.modifiers()};
    bool consumed = false;
    // Redrawn only when the form acted: a redraw would reset an open cell editor.
    const bool ok =
        rutinas_.Ejecutar([&] { consumed = EnviarTeclaAlFormulario(*form_, rutinas_, tecla); });
    if (consumed || !ok)
        run([] {});
    if (consumed)
        return true;
    if (k.text().isEmpty())
        return false;
    const QChar dado = k.text().front();
    const QChar queda = EnviarCaracterAlFormulario(*form_, rutinas_, dado, tecla);
    if (queda.isNull())
        return true;
    if (queda == dado)
        return false;
    QKeyEvent otra(QEvent::KeyPress, k.key(), k.modifiers(), QString(queda));
    const QKeyEvent *antes = std::exchange(pasada_, &otra);
    QCoreApplication::sendEvent(destino, &otra);
    pasada_ = antes;
    return true;
}

bool FormView::letra(const QKeyEvent &key, bool actuar) {
    if (key.modifiers() != Qt::AltModifier || key.key() < Qt::Key_0 || key.key() > Qt::Key_Z)
        return false;
    const QKeySequence pulsada(Qt::ALT | Qt::Key(key.key()));
    for (QWidget *w : std::as_const(widgets_))
        if (auto *b = qobject_cast<QAbstractButton *>(w);
            b && b->isVisible() && b->isEnabled() && QKeySequence::mnemonic(b->text()) == pulsada) {
            if (actuar)
                b->click();
            return true;
        }
    for (QAction *a : menus_->actions())
        if (a->isEnabled() && QKeySequence::mnemonic(a->text()) == pulsada) {
            if (actuar)
                menus_->setActiveAction(a);
            return true;
        }
    return false;
}

bool FormView::event(QEvent *event) {
    // Taken here, the key comes back as a key press instead of the main menu's shortcut.
    if (event->type() == QEvent::ShortcutOverride &&
        letra(*static_cast<QKeyEvent *>(event), false)) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress && letra(*static_cast<QKeyEvent *>(event), true))
        return true;
    return QWidget::event(event);
}

void FormView::closeEvent(QCloseEvent *event) {
    bool closed = form_->Closed();
    if (!closed)
        rutinas_.Ejecutar([&] { closed = form_->Close(); });
    if (closed)
        event->accept();
    else
        event->ignore();
}

} // namespace co::ui
