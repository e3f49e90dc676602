#pragma once
// A layer test for works screens, tables made on first use: the general
// parameters and other tables can be filled before a screen opens.
#include "core/general_parameters_table.h"
#include "core/table_opening.h"
#include "forms/table.h"
#include "support/layer_fixture.h"

#include <memory>

namespace co::works {

class WorksScreenTest : public co::test::TablesOnDemandTest {
protected:
    void parametros(QVariantHash valores) {
        ASSERT_TRUE(GrabarParametrosGenerales(*datos_, std::move(valores)));
    }
    // Opens another table through the form opening, so it is made when missing.
    void tabla(const QString &nombre, const QStringList &inserts) {
        forms::Table t(*datos_, QStringLiteral("Table1"), nombre);
        AperturaTablas apertura(*datos_, *creador_);
        ASSERT_TRUE(apertura.AperturaTablaOK(t));
        for (const QString &sql : inserts)
            ok(sql);
    }
};

} // namespace co::works
