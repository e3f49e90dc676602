#pragma once
// The spreadsheet export of the page document: the same rows as the CSV
// export (page header once, no page footers), one row of the sheet per row of
// the report and one cell per text, written to an .xlsx file with
// libxlsxwriter. Texts that read as Spanish numbers ("1.234,56") become
// numeric cells; codes with leading zeros stay text.
//
// Rows are streamed (constant memory): the file is written as pages arrive and
// is complete after finish(). No page writes no file.

#include "output/page_document.h"

#include <QString>
#include <optional>

struct lxw_workbook;
struct lxw_worksheet;

namespace co {

// The number a cell text stands for, when it is one.
std::optional<double> NumeroDeTexto(const QString &texto);

class XlsxExportSink : public PageSink {
public:
    explicit XlsxExportSink(QString ruta);
    ~XlsxExportSink() override;
    XlsxExportSink(const XlsxExportSink &) = delete;
    XlsxExportSink &operator=(const XlsxExportSink &) = delete;

    bool addPage(ReportPage &&page, QString *motivo) override;
    bool finish(QString *motivo) override;

private:
    QString ruta_;
    lxw_workbook *workbook_ = nullptr;
    lxw_worksheet *sheet_ = nullptr;
    int row_ = 0;
};

} // namespace co
