#pragma once
// Drives a record screen headless, as a user would: open it through the
// program's own opening routine (forms/screen_opening.h), leave
// and enter grid columns, type into fields, click buttons and menu items, with
// every action run as the window loop runs it (silent aborts end it, refused
// writes are told). Dialogs are answered by the test's ScriptedMessages.

#include "core/table_creation.h"
#include "core/table_opening.h"
#include "forms/form.h"
#include "forms/maintenance_routines.h"
#include "forms/screen_opening.h"
#include "forms/table.h"
#include "support/layer_fixture.h"

#include <QStringList>
#include <memory>

namespace co::test {

template <class Pantalla> class ScreenTest {
public:
    explicit ScreenTest(TModuloDatos &datos)
        : datos_(datos), creador_(datos, kCarpetaDatos), apertura_(datos, creador_),
          entorno_{datos, creador_},
          form_(std::make_unique<Pantalla>(datos)) {}

    Pantalla &form() { return *form_; }
    AperturaTablas &opening() { return apertura_; }
    // Options of the opening (rights, hidden controls, currencies) a test may set first.
    forms::EntornoPantallas &environment() { return entorno_; }
    bool open() { return forms::AbrirPantalla(*form_, entorno_); }

    // A button's or menu item's click; false when it stopped.
    bool click(const QString &name) {
        return form_->Rutinas().Ejecutar([&] {
            if (!form_->Click(name))
                throw forms::EAbort();
        });
    }
    // Moves to a column of a grid by field name; false when leaving the old one stopped.
    bool column(const QString &field, const QString &gridName = QStringLiteral("DBGrid1")) {
        auto *grid = form_->template Find<forms::DBGrid>(gridName);
        if (!grid || !focus(gridName))
            return false;
        for (int i = 0; i < grid->Columns.size(); ++i)
            if (grid->Columns[i].FieldName == field) {
                bool moved = false;
                const bool ran =
                    form_->Rutinas().Ejecutar([&] { moved = form_->SelectColumn(*grid, i); });
                return ran && moved;
            }
        return false;
    }
    // Types a text into a grid column of the current record (auto edit).
    bool type(const QString &field, const QString &text) {
        if (!column(field))
            return false;
        return form_->Rutinas().Ejecutar([&] {
            forms::Table &t = form_->Table1();
            if (!t.IsPending())
                t.Edit();
            t.FieldByName(field).SetAsString(text);
        });
    }
    // Moves the focus to a control by name; false when leaving the old one stopped.
    bool focus(const QString &name) {
        forms::Component *c = form_->FindComponent(name);
        bool moved = false;
        const bool ran = c && form_->Rutinas().Ejecutar([&] { moved = form_->SetFocus(c); });
        return ran && moved;
    }
    // Types a text into a data edit or combo box (auto edit), as its change event tells.
    bool edit(const QString &name, const QString &text) {
        if (!focus(name))
            return false;
        auto *c = form_->template Find<forms::DataControl>(name);
        return c && form_->Rutinas().Ejecutar([&] {
            forms::Dataset *d = c->DataSet();
            if (!d->IsPending())
                d->Edit();
            c->BoundField()->SetAsString(text);
            form_->RunEvent(*c, QStringLiteral("OnChange"));
        });
    }
    // Values of one field over the whole table, in key order.
    QStringList values(const QString &field) {
        QStringList out;
        forms::Table &t = form_->Table1();
        for (t.First(); !t.Eof(); t.Next())
            out << t.FieldByName(field).AsString();
        return out;
    }
    // Closes and opens the screen again.
    bool reopen() {
        form_ = std::make_unique<Pantalla>(datos_);
        return open();
    }

private:
    TModuloDatos &datos_;
    CreadorTablas creador_;
    AperturaTablas apertura_;
    forms::EntornoPantallas entorno_;
    std::unique_ptr<Pantalla> form_;
};

} // namespace co::test
