#pragma once
// `FormView`: draws any `Form` from its components and turns the user's acts
// into calls of the form's logic. Grids show their dataset through a
// `DatasetModel`; data edits, combo boxes and memos (multi-line, lines kept
// with CR LF) are bound to their fields; a control on a tab page is drawn on
// that page of a tab widget; edits align as their field does; buttons
// run the form's clicks; menu items go under a "Ficha" menu; a status line says
// in words what is being done with `Table1` and where. Every key press and typed character goes to
// the key map first; what it consumes never reaches the widget, and so do
// those typed into a grid's cell editor. A grid's header can be dragged and
// resized: the grid's columns follow it, and a change of them in the form
// (Ctrl+H) redraws the header. Ctrl+S switches a grid to multi-row selection.
// The "Ficha" menu's items show their captions and checks as the form sets them. Focus changes
// and grid column changes run the form's exit checks and are undone when they
// stop. The view answers the form's font dialog (Ctrl+L) on its own widgets.
// No business rule lives here.

#include "forms/form.h"
#include "forms/maintenance_routines.h"

#include <QHash>
#include <QWidget>
#include <memory>

class QLabel;
class QKeyEvent;
class QMenuBar;
class QTableView;

namespace co::ui {

class DatasetModel;

class FormView : public QWidget {
public:
    // Takes the form; `rutinas` run the user's actions as the window loop does.
    FormView(std::unique_ptr<forms::Form> form, forms::RutinasFormulario &rutinas,
             QWidget *parent = nullptr);
    ~FormView() override;

    forms::Form &form() const { return *form_; }
    forms::RutinasFormulario &rutinas() const { return rutinas_; }
    QWidget *widgetFor(const QString &component) const;
    QTableView *grid(const QString &name) const;
    QString statusText() const;
    // The status line's words for a table's state and place.
    static QString TextoEstado(forms::Dataset &table);
    // A memo's text with its line ends as stored: CR LF.
    static QString TextoMemo(QString texto);
    QSize sizeHint() const override;
    // Re-reads every widget from the form's state.
    void refresh();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    bool event(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void build();
    void bindGrid(forms::DBGrid &grid, QTableView *view);
    bool run(const std::function<void()> &action);
    void typed(forms::Component &control, const QString &text);
    // A key press on a control, or on the cell editor of a grid, goes to the
    // key map and the character rule; true when they consumed it.
    bool teclaAlFormulario(forms::Component &control, QObject *destino, QKeyEvent &key);
    // The header of a grid as its columns say: their order, widths and titles.
    void ajustarCabecera(QTableView &view, DatasetModel &model);

    std::unique_ptr<forms::Form> form_;
    forms::RutinasFormulario &rutinas_;
    QHash<forms::Component *, QWidget *> widgets_;
    QHash<QWidget *, forms::Component *> components_;
    QHash<forms::DBGrid *, DatasetModel *> models_;
    QLabel *status_ = nullptr;
    QMenuBar *menus_ = nullptr;
    // Alt+letter of this window's buttons and menu, before the main window's;
    // true when one took it (`actuar` false: only tells whether one would).
    bool letra(const QKeyEvent &key, bool actuar);
    bool refreshing_ = false;
    bool ajustando_ = false;
    // A key being handed on to its widget, which already went through the form.
    const QKeyEvent *pasada_ = nullptr;
};

} // namespace co::ui
