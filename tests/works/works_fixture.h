#pragma once
// A layer test for works screens: tables are made from the structure file when
// a statement misses them, and the general parameters and other tables can be
// filled before a screen opens.
#include "core/general_parameters_table.h"
#include "core/table_creation.h"
#include "core/table_opening.h"
#include "forms/table.h"
#include "support/layer_fixture.h"

#include <memory>

namespace co::works {

class WorksScreenTest : public co::test::LayerTest {
protected:
    void SetUp() override {
        LayerTest::SetUp();
        creador_ = std::make_unique<CreadorTablas>(*datos_, QStringLiteral(CO_SOURCE_DIR "/data"));
        datos_->setTableCreator(creador_.get());
    }
    void TearDown() override {
        if (datos_)
            datos_->setTableCreator(nullptr);
        creador_.reset();
        LayerTest::TearDown();
    }
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
    std::unique_ptr<CreadorTablas> creador_;
};

} // namespace co::works
