#include "ui/search_dialog.h"

#include "core/session.h"
#include "forms/pick_list_check.h"
#include "ui/dataset_model.h"
#include "ui/font_dialog.h"
#include "ui/grid_columns.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTableWidget>
#include <QVBoxLayout>

namespace co::ui {

namespace {

using forms::Component;

bool ejecutar(const std::function<void()> &accion) {
    try {
        accion();
        return true;
    } catch (const forms::EAbort &) {
    } catch (const forms::EDatabaseError &) {
    }
    return false;
}

// The grid of a search answer; a new model after every search, as the columns
// change, and after every change of the rows' filter.
class RejillaBusqueda {
public:
    RejillaBusqueda(forms::DBGrid &grid, QTableView *view) : grid_(grid), view_(view) {}
    void refrescar(const QString &sentencia) {
        const forms::Dataset *filas = grid_.DataSet();
        const QString estado =
            sentencia + u'\n' + (filas && filas->Filtered() ? filas->Filter() : QString());
        if (estado == estado_ && model_)
            return;
        estado_ = estado;
        auto *anterior = model_;
        model_ = new DatasetModel(grid_, ejecutar, view_);
        view_->setModel(model_);
        delete anterior;
        AjustarAnchosColumnas(*view_, *model_);
        QObject::connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, view_,
                         [this](const QModelIndex &i) {
                             if (i.isValid())
                                 model_->moveTo(i.row());
                         });
        if (model_->rowCount() > 0)
            view_->setCurrentIndex(model_->index(0, 0));
    }

private:
    forms::DBGrid &grid_;
    QTableView *view_;
    DatasetModel *model_ = nullptr;
    QString estado_;
};

class DialogoBusqueda : public QDialog {
public:
    DialogoBusqueda(forms::TfGENEBUSQ &v, QWidget *parent) : QDialog(parent), v_(v) {
        setObjectName(v.Name);
        setWindowTitle(v.Caption);
        auto *capa = new QVBoxLayout(this);
        dato_ = nuevo<QLineEdit>(QStringLiteral("DatoABuscar"));
        lista_ = nuevo<QComboBox>(QStringLiteral("ListaCamposBusqueda"));
        limite_ = nuevo<QComboBox>(QStringLiteral("NumeroMaximoRegistros"));
        limite_->setEditable(true);
        auto *fila = new QHBoxLayout;
        fila->addWidget(dato_, 2);
        fila->addWidget(lista_, 2);
        fila->addWidget(limite_);
        capa->addLayout(fila);
        panel_ = new QWidget(this);
        panel_->setObjectName(QStringLiteral("PanelPersonalizarBusqueda"));
        auto *opciones = new QHBoxLayout(panel_);
        const QStringList modos = {QStringLiteral("Aproximada"), QStringLiteral("Parcial"),
                                   QStringLiteral("Fonética")};
        for (int i = 0; i < modos.size(); ++i) {
            modos_ << new QRadioButton(modos[i], panel_);
            opciones->addWidget(modos_.last());
            connect(modos_.last(), &QRadioButton::clicked, this, [this, i] {
                accion([&] { v_.ElegirModo(static_cast<forms::ModoBusqueda>(i)); });
            });
        }
        ordenados_ = new QCheckBox(QStringLiteral("Resultados Ordenados"), panel_);
        memos_ = new QCheckBox(QStringLiteral("Mostrar Campos Memo"), panel_);
        ordenados_->setObjectName(QStringLiteral("ResultadosOrdenados"));
        memos_->setObjectName(QStringLiteral("MostrarCamposMemo"));
        opciones->addWidget(ordenados_);
        opciones->addWidget(memos_);
        capa->addWidget(panel_);
        grid_ = nuevo<QTableView>(QStringLiteral("DBGrid1"));
        grid_->setSelectionBehavior(QAbstractItemView::SelectRows);
        grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
        grid_->setContextMenuPolicy(Qt::ActionsContextMenu);
        for (forms::Component *c : v_.Components()) {
            if (c->Kind() != forms::ComponentKind::MenuItem)
                continue;
            auto *a = new QAction(c->Caption, grid_);
            a->setObjectName(c->Name());
            grid_->addAction(a);
            connect(a, &QAction::triggered, this,
                    [this, nombre = c->Name()] { accion([&] { v_.Click(nombre); }); });
        }
        capa->addWidget(grid_, 1);
        rejilla_ = std::make_unique<RejillaBusqueda>(v_.DBGrid1(), grid_);
        v_.DialogoFuente = [this](forms::DBGrid &) { DialogoFuente(*grid_, true); };
        auto *botones = new QHBoxLayout;
        for (const char *n : {"pbPersonalizarBusqueda", "pbBuscar", "pbConforme", "pbCancelar"}) {
            const QString nombre = QString::fromLatin1(n);
            auto *b = new QPushButton(v_.FindComponent(nombre)->Caption, this);
            b->setObjectName(nombre);
            b->setAutoDefault(false);
            botones->addWidget(b);
            connect(b, &QPushButton::clicked, this,
                    [this, nombre] { accion([&] { v_.Click(nombre); }); });
        }
        capa->addLayout(botones);
        estado_ = nuevo<QLabel>(QStringLiteral("StatusBar1"));
        capa->addWidget(estado_);

        connect(dato_, &QLineEdit::textEdited, this,
                [this](const QString &t) { v_.DatoABuscar().Text = t; });
        connect(lista_, &QComboBox::activated, this,
                [this](int i) { accion([&] { v_.ElegirCampos(i); }); });
        connect(limite_, &QComboBox::currentTextChanged, this, [this](const QString &t) {
            if (!leyendo_)
                v_.NumeroMaximoRegistros().Text = t;
        });
        connect(ordenados_, &QCheckBox::toggled, this, [this](bool on) {
            if (!leyendo_)
                v_.Find<Component>(QStringLiteral("ResultadosOrdenados"))->Checked = on;
        });
        connect(memos_, &QCheckBox::clicked, this,
                [this](bool on) { accion([&] { v_.CambiarMostrarMemos(on); }); });
        connect(grid_, &QTableView::doubleClicked, this,
                [this] { accion([&] { v_.CallHandler(QStringLiteral("DBGrid1DblClick")); }); });
        refrescar();
        resize(640, 420);
    }
    ~DialogoBusqueda() override { v_.DialogoFuente = nullptr; }

protected:
    bool eventFilter(QObject *obj, QEvent *e) override {
        if (e->type() != QEvent::KeyPress)
            return QDialog::eventFilter(obj, e);
        auto *k = static_cast<QKeyEvent *>(e);
        const Tecla t{k->key(), k->modifiers()};
        v_.SetFocus(v_.FindComponent(obj->objectName()));
        if (obj == dato_ && !k->text().isEmpty()) {
            const QChar c = v_.ProcesarCaracter(k->text().front(), t);
            if (c != k->text().front()) {
                dato_->insert(QString(c));
                v_.DatoABuscar().Text = dato_->text();
                return true;
            }
        }
        bool consumida = false;
        accion([&] { consumida = v_.ProcesarTecla(t); });
        return consumida;
    }

private:
    template <class W> W *nuevo(const QString &nombre) {
        auto *w = new W(this);
        w->setObjectName(nombre);
        w->installEventFilter(this);
        return w;
    }

    void accion(const std::function<void()> &a) {
        ejecutar(a);
        refrescar();
        if (!v_.Abierta())
            v_.Resultado() ? accept() : reject();
    }

    void refrescar() {
        leyendo_ = true;
        setWindowTitle(v_.Caption);
        if (dato_->text() != v_.DatoABuscar().Text)
            dato_->setText(v_.DatoABuscar().Text);
        if (lista_->count() != v_.ListaCamposBusqueda().Items.size()) {
            lista_->clear();
            lista_->addItems(v_.ListaCamposBusqueda().Items);
        }
        lista_->setCurrentIndex(
            v_.ListaCamposBusqueda().Items.indexOf(v_.ListaCamposBusqueda().Text));
        if (limite_->count() == 0)
            limite_->addItems(v_.NumeroMaximoRegistros().Items);
        limite_->setCurrentText(v_.NumeroMaximoRegistros().Text);
        limite_->setEnabled(v_.NumeroMaximoRegistros().Enabled);
        for (int i = 0; i < modos_.size(); ++i)
            modos_[i]->setChecked(static_cast<int>(v_.Modo()) == i);
        ordenados_->setChecked(v_.Find<Component>(QStringLiteral("ResultadosOrdenados"))->Checked);
        memos_->setChecked(v_.Find<Component>(QStringLiteral("MostrarCamposMemo"))->Checked);
        panel_->setVisible(v_.PanelPersonalizarBusqueda().Visible);
        estado_->setText(v_.TextoEstado());
        if (v_.Abierta())
            rejilla_->refrescar(v_.UltimaSentencia());
        // Only a change of the option touches the font: a font chosen with Ctrl+L stays.
        const bool pequena = v_.Find<Component>(QStringLiteral("LetraPequena"))->Checked;
        if (pequena != pequena_) {
            pequena_ = pequena;
            QFont letra = font();
            letra.setPointSize(font().pointSize() - (pequena ? 2 : 0));
            grid_->setFont(letra);
        }
        if (Component *foco = v_.ActiveControl())
            if (auto *w = findChild<QWidget *>(foco->Name()); w && !w->hasFocus())
                w->setFocus();
        leyendo_ = false;
    }

    forms::TfGENEBUSQ &v_;
    QLineEdit *dato_;
    QComboBox *lista_;
    QComboBox *limite_;
    QWidget *panel_;
    QList<QRadioButton *> modos_;
    QCheckBox *ordenados_;
    QCheckBox *memos_;
    QTableView *grid_;
    QLabel *estado_;
    std::unique_ptr<RejillaBusqueda> rejilla_;
    bool leyendo_ = false;
    bool pequena_ = false;
};

class DialogoAproximacion : public QDialog {
public:
    DialogoAproximacion(forms::TfGENEBUSA &v, QWidget *parent) : QDialog(parent), v_(v) {
        setObjectName(v.Name);
        setWindowTitle(v.Caption);
        auto *capa = new QVBoxLayout(this);
        valores_ = new QTableWidget(static_cast<int>(v.ValueListEditor.size()), 2, this);
        valores_->setObjectName(QStringLiteral("ValueListEditor"));
        valores_->setHorizontalHeaderLabels({QStringLiteral("Campo"), QStringLiteral("Valor")});
        for (int i = 0; i < v.ValueListEditor.size(); ++i) {
            auto *campo = new QTableWidgetItem(forms::EtiquetaCampo(v.ValueListEditor[i].campo));
            campo->setFlags(Qt::ItemIsEnabled);
            campo->setForeground(QColor(Qt::darkBlue));
            valores_->setItem(i, 0, campo);
            valores_->setItem(i, 1, new QTableWidgetItem);
        }
        connect(valores_, &QTableWidget::cellChanged, this, [this](int fila, int col) {
            if (col == 1)
                v_.ValueListEditor[fila].valor = valores_->item(fila, 1)->text();
        });
        capa->addWidget(valores_);
        grid_ = new QTableView(this);
        grid_->setObjectName(QStringLiteral("DBGrid1"));
        grid_->setEditTriggers(QAbstractItemView::NoEditTriggers);
        grid_->installEventFilter(this);
        capa->addWidget(grid_, 1);
        rejilla_ = std::make_unique<RejillaBusqueda>(v_.DBGrid1(), grid_);
        auto *botones = new QHBoxLayout;
        for (const char *n : {"pbBuscar", "pbConforme", "pbCancelar"}) {
            const QString nombre = QString::fromLatin1(n);
            auto *b = new QPushButton(v_.FindComponent(nombre)->Caption, this);
            b->setAutoDefault(false);
            botones->addWidget(b);
            connect(b, &QPushButton::clicked, this,
                    [this, nombre] { accion([&] { v_.Click(nombre); }); });
        }
        capa->addLayout(botones);
        connect(grid_, &QTableView::doubleClicked, this,
                [this] { accion([&] { v_.Conforme(); }); });
        resize(560, 420);
    }

protected:
    bool eventFilter(QObject *obj, QEvent *e) override {
        if (obj != grid_ || e->type() != QEvent::KeyPress)
            return QDialog::eventFilter(obj, e);
        auto *k = static_cast<QKeyEvent *>(e);
        if (k->key() == Qt::Key_Escape)
            return QDialog::eventFilter(obj, e);
        v_.SetFocus(&v_.DBGrid1());
        bool consumida = false;
        accion([&] { consumida = v_.ProcesarTecla({k->key(), k->modifiers()}); });
        return consumida;
    }
    void reject() override {
        v_.Cancelar();
        QDialog::reject();
    }

private:
    void accion(const std::function<void()> &a) {
        const bool habia = v_.Resultado().has_value();
        ejecutar(a);
        rejilla_->refrescar(v_.UltimaSentencia());
        if (v_.Resultado() && !habia)
            accept();
    }

    forms::TfGENEBUSA &v_;
    QTableWidget *valores_;
    QTableView *grid_;
    std::unique_ptr<RejillaBusqueda> rejilla_;
};

} // namespace

void EjecutorBusquedaQt::Mostrar(forms::TfGENEBUSQ &ventana) {
    DialogoBusqueda d(ventana, parent_);
    d.exec();
    if (ventana.Abierta())
        ventana.Cancelar();
}

void EjecutorBusquedaQt::Mostrar(forms::TfGENEBUSA &ventana) {
    DialogoAproximacion d(ventana, parent_);
    d.exec();
}

QString EjecutorBusquedaQt::SeleccionarTabla(const QStringList &tablas, const QString &definicion) {
    QStringList ordenadas = tablas;
    ordenadas.sort();
    bool ok = false;
    const QString titulo =
        definicion.section(QStringLiteral("Titulo="), 1).section(QStringLiteral("\r\n"), 0, 0);
    const QString t = QInputDialog::getItem(parent_, titulo, titulo, ordenadas, 0, false, &ok);
    return ok ? t : QString();
}

BusquedasEscritorio::BusquedasEscritorio(TModuloDatos &datos,
                                         forms::Busquedas::LectorOpciones opciones, QWidget *parent)
    : QObject(parent), ejecutor_(parent),
      busquedas_(datos, datos.sesion().mensajes(), ejecutor_, std::move(opciones)) {}

} // namespace co::ui
