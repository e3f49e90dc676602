#pragma once
// Shared data and designs of the output tests: a small works listing with
// two group levels, and the golden-file comparison.

#include "output/report_runner.h"
#include "support/gtest_qt_printing.h"

#include <QString>
#include <gtest/gtest.h>
#include <memory>

namespace co::test {

// Rows of (CodigoObra, CodigoCapitulo, Descripcion, Importe, Fecha), ordered by
// works and chapter: works 1 chapters 1 and 2, works 2 chapter 1, works 3
// chapter 5, with amounts chosen so that each group has its own sum.
std::unique_ptr<RowListDataSource> DatosObras();
std::unique_ptr<RowListDataSource> DatosVacios();
// `count` rows of one works and chapter, amount 1 each.
std::unique_ptr<RowListDataSource> DatosRepetidos(int count);

// Page header, groups by works and by "Str(CodigoObra)+Str(CodigoCapitulo)",
// detail, group footers with sums, summary and page footer.
ReportDesign DisenoObras();

ComposeContext ContextoFijo();

// Compares `actual` with tests/output/golden/<name>; CO_UPDATE_GOLDEN=1
// rewrites the file instead (to be reviewed before committing).
void ExpectGolden(const QString &name, const QString &actual);
QString ReadFile(const QString &path);

// A report over rows held in memory.
class MemoryReport : public Report {
public:
    MemoryReport(ReportEnvironment entorno,
                 std::function<std::unique_ptr<ReportDataSource>()> datos)
        : Report(std::move(entorno)), datos_(std::move(datos)) {}
    std::unique_ptr<ReportDataSource> AntesDeImprimir() override { return datos_(); }

private:
    std::function<std::unique_ptr<ReportDataSource>()> datos_;
};

ReportEnvironment EntornoFijo(Messenger &mensajes);

} // namespace co::test
