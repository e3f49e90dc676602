#pragma once
// The engine: prints a design against a data source onto pages, handing each
// page to the sink as soon as it is complete. Only the page in progress and
// two rows (the current one and the one before, which the group footers
// print) are held, so memory does not grow with the row count.
//
// Order: page header at the top of each page; when a group expression
// changes, the footers of the groups that closed (innermost first), a new page
// when one of them forces it, then the headers of the groups that opened; the
// detail once per row, then its sub-detail rows; at the end the footers, the
// summary and the last page footer. A band that does not fit above the page
// footer goes to a new page; a band taller than an empty page is printed
// there anyway (cut), never looping.

#include "output/control_text.h"
#include "output/page_document.h"
#include "output/report_data_source.h"
#include "output/report_design.h"

#include <QString>

namespace co {

enum class ResultadoComposicion { Completo, SinDatos, Cancelado, Fallo };

struct ComposeStats {
    int pages = 0;
    qint64 rows = 0;
};

// The design is copied: before-print handlers change the copy. A design that
// names fields the source lacks, or holds a malformed expression, fails before
// any page with `motivo` in Spanish. An empty source gives SinDatos and no page.
ResultadoComposicion ComponerReport(ReportDesign design, ReportDataSource &datos, PageSink &sink,
                                    const ComposeContext &ctx, QString *motivo,
                                    ComposeStats *stats = nullptr);

} // namespace co
