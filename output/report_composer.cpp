#include "output/report_composer.h"

#include "output/group_expression.h"

#include <algorithm>

namespace co {

namespace {

QString campoInexistente(const QString &campo) {
    return QStringLiteral("El campo \"%1\" no existe en los datos del informe").arg(campo);
}

struct SumSlot {
    ReportBand *band;
    int control;
    int field;
    long double total = 0;
};

class Composer {
public:
    Composer(ReportDesign &design, ReportDataSource &datos, PageSink &sink,
             const ComposeContext &ctx)
        : d_(design), src_(datos), sink_(sink), ctx_(ctx) {}

    ResultadoComposicion run(QString *motivo, ComposeStats *stats);

private:
    bool prepare(QString *motivo);
    bool checkFields(const ReportBand &band, const ReportDataSource &source, QString *motivo);
    void readRow();
    int changedLevel() const;
    bool printFooters(int from, QString *motivo);
    bool printBand(ReportBand &band, const ReportDataSource &source, const QVariantList &values,
                   QString *motivo);
    bool printSubDetail(QString *motivo);
    bool ensureSpace(int height, QString *motivo);
    void beginPage();
    bool endPage(QString *motivo);
    QString textOf(const ReportBand &band, int index, const ReportDataSource &source,
                   const QVariantList &values) const;

    ReportDesign &d_;
    ReportDataSource &src_;
    PageSink &sink_;
    const ComposeContext &ctx_;

    QList<QList<int>> groupFields_;
    QList<SumSlot> sums_;
    QVariantList cur_, prev_;
    ReportPage page_;
    int y_ = 0, limit_ = 0;
    bool pageHasBody_ = false;
    int pages_ = 0;
};

bool Composer::checkFields(const ReportBand &band, const ReportDataSource &source,
                           QString *motivo) {
    for (const ReportControl &c : band.Controls) {
        if (c.Kind == ControlKind::Field && source.fieldIndex(c.DataField) < 0) {
            *motivo = campoInexistente(c.DataField);
            return false;
        }
        if (c.Kind == ControlKind::Sum) {
            const auto campo = CampoDeSuma(c.DataField, motivo);
            if (!campo)
                return false;
            if (source.fieldIndex(*campo) < 0) {
                *motivo = campoInexistente(*campo);
                return false;
            }
        }
    }
    return true;
}

bool Composer::prepare(QString *motivo) {
    for (ReportGroup &g : d_.Groups) {
        const auto e = ExpresionGrupo::Analizar(g.Expression, motivo);
        if (!e)
            return false;
        QList<int> fields;
        for (const QString &campo : e->campos) {
            const int i = src_.fieldIndex(campo);
            if (i < 0) {
                *motivo = campoInexistente(campo);
                return false;
            }
            fields << i;
        }
        groupFields_ << fields;
    }
    for (ReportBand *band : d_.bands()) {
        if (d_.Detail && band == &d_.Detail->Band)
            continue; // checked against each sub-detail source
        if (!checkFields(*band, src_, motivo))
            return false;
        for (int i = 0; i < band->Controls.size(); ++i)
            if (band->Controls[i].Kind == ControlKind::Sum)
                sums_.push_back(
                    {band, i, src_.fieldIndex(*CampoDeSuma(band->Controls[i].DataField, nullptr))});
    }
    return true;
}

void Composer::readRow() {
    const int n = static_cast<int>(src_.fieldNames().size());
    cur_.resize(n);
    for (int i = 0; i < n; ++i)
        cur_[i] = src_.value(i);
}

// The outermost group whose expression differs between the previous and the
// current row; -1 when none does.
int Composer::changedLevel() const {
    for (int level = 0; level < groupFields_.size(); ++level)
        for (int f : groupFields_[level])
            if (cur_[f] != prev_[f])
                return level;
    return -1;
}

QString Composer::textOf(const ReportBand &band, int index, const ReportDataSource &source,
                         const QVariantList &values) const {
    const ReportControl &c = band.Controls[index];
    switch (c.Kind) {
    case ControlKind::Label:
        return c.Caption;
    case ControlKind::PageNumber:
        return c.Caption + QString::number(page_.number);
    case ControlKind::Date:
        return c.Caption + ctx_.fecha.toString(QStringLiteral("dd/MM/yyyy"));
    case ControlKind::Field: {
        const int f = source.fieldIndex(c.DataField);
        return f < 0 || f >= values.size() ? QString()
                                           : TextoControl(c, values[f], source.fieldKind(f), ctx_);
    }
    case ControlKind::Sum:
        for (const SumSlot &s : sums_)
            if (s.band == &band && s.control == index)
                return TextoControl(c, static_cast<double>(s.total), ColumnKind::Float, ctx_);
        return {};
    case ControlKind::Image:
    case ControlKind::Line:
    case ControlKind::Shape:
        break;
    }
    return {};
}

bool Composer::printBand(ReportBand &band, const ReportDataSource &source,
                         const QVariantList &values, QString *motivo) {
    if (band.BeforePrint && !band.BeforePrint(band, RowView(&source, &values)))
        return true;
    QStringList texts;
    int height = band.Height;
    for (int i = 0; i < band.Controls.size(); ++i) {
        const ReportControl &c = band.Controls[i];
        texts << (c.Visible ? textOf(band, i, source, values) : QString());
        if (c.Visible && c.AutoStretch)
            height = std::max(height,
                              c.Top + c.Height * static_cast<int>(texts.back().count(u'\n') + 1));
    }
    const bool pageBand = band.Type == BandType::PageHeader || band.Type == BandType::PageFooter;
    if (!pageBand && !ensureSpace(height, motivo))
        return false;
    const int left = d_.Page.marginLeft;
    if (band.Color) {
        PageItem r =
            PageItem::At(PageItem::Kind::Rect, band.Type, left, y_, d_.Page.bodyWidth(), height);
        r.color = *band.Color;
        r.fill = *band.Color;
        page_.items.push_back(std::move(r));
    }
    for (int i = 0; i < band.Controls.size(); ++i) {
        const ReportControl &c = band.Controls[i];
        if (!c.Visible)
            continue;
        PageItem it = PageItem::At(PageItem::Kind::Text, band.Type, left + c.Left, y_ + c.Top,
                                   c.Width, c.Height);
        it.font = c.Font;
        it.align = c.Alignment;
        it.color = c.Color;
        switch (c.Kind) {
        case ControlKind::Line:
            it.kind = PageItem::Kind::Line;
            it.h = 0;
            page_.items.push_back(std::move(it));
            continue;
        case ControlKind::Shape:
            it.kind = PageItem::Kind::Rect;
            page_.items.push_back(std::move(it));
            continue;
        case ControlKind::Image:
            if (c.Picture.isNull())
                continue;
            it.kind = PageItem::Kind::Image;
            it.image = c.Picture;
            page_.items.push_back(std::move(it));
            continue;
        default:
            break;
        }
        if (texts[i].isEmpty())
            continue;
        if (!c.AutoStretch) {
            it.text = texts[i];
            page_.items.push_back(std::move(it));
            continue;
        }
        // One item a line, so that every output sees the lines alike.
        for (const QString &line : texts[i].split(u'\n')) {
            PageItem l = it;
            l.text = line;
            page_.items.push_back(std::move(l));
            it.y += c.Height;
        }
    }
    y_ += height;
    if (!pageBand)
        pageHasBody_ = true;
    for (SumSlot &s : sums_)
        if (s.band == &band && band.Controls[s.control].ResetAfterPrint)
            s.total = 0;
    return true;
}

bool Composer::ensureSpace(int height, QString *motivo) {
    if (y_ + height <= limit_ || !pageHasBody_)
        return true;
    if (!endPage(motivo))
        return false;
    beginPage();
    return true;
}

void Composer::beginPage() {
    page_ = ReportPage();
    page_.number = ++pages_;
    page_.width = d_.Page.width();
    page_.height = d_.Page.height();
    y_ = d_.Page.marginTop;
    limit_ = d_.Page.height() - d_.Page.marginBottom - (d_.PageFooter ? d_.PageFooter->Height : 0);
    pageHasBody_ = false;
    if (d_.PageHeader) {
        QString unused;
        printBand(*d_.PageHeader, src_, cur_, &unused);
    }
}

bool Composer::endPage(QString *motivo) {
    if (d_.PageFooter) {
        y_ = limit_;
        if (!printBand(*d_.PageFooter, src_, cur_, motivo))
            return false;
    }
    return sink_.addPage(std::move(page_), motivo);
}

bool Composer::printFooters(int from, QString *motivo) {
    for (qsizetype level = d_.Groups.size() - 1; level >= from; --level) {
        ReportGroup &g = d_.Groups[level];
        if (g.Footer && !printBand(*g.Footer, src_, prev_, motivo))
            return false;
    }
    return true;
}

bool Composer::printSubDetail(QString *motivo) {
    if (!d_.Detail || !d_.Detail->Rows)
        return true;
    std::unique_ptr<ReportDataSource> rows = d_.Detail->Rows(RowView(&src_, &cur_));
    if (!rows)
        return true;
    if (!rows->open(motivo) || !checkFields(d_.Detail->Band, *rows, motivo))
        return false;
    QVariantList values;
    while (rows->next()) {
        const int n = static_cast<int>(rows->fieldNames().size());
        values.resize(n);
        for (int i = 0; i < n; ++i)
            values[i] = rows->value(i);
        if (!printBand(d_.Detail->Band, *rows, values, motivo))
            return false;
    }
    return true;
}

ResultadoComposicion Composer::run(QString *motivo, ComposeStats *stats) {
    if (!src_.open(motivo) || !prepare(motivo))
        return ResultadoComposicion::Fallo;
    if (!src_.next())
        return ResultadoComposicion::SinDatos;
    qint64 rows = 0;
    readRow();
    beginPage();
    for (bool first = true;; first = false) {
        const int level = first ? 0 : changedLevel();
        if (!first && level >= 0) {
            if (!printFooters(level, motivo))
                return ResultadoComposicion::Fallo;
            bool force = false;
            for (qsizetype l = level; l < d_.Groups.size(); ++l)
                force = force || d_.Groups[l].ForceNewPage;
            if (force && pageHasBody_) {
                if (!endPage(motivo))
                    return ResultadoComposicion::Fallo;
                beginPage();
            }
        }
        if (level >= 0)
            for (qsizetype l = level; l < d_.Groups.size(); ++l)
                if (!printBand(d_.Groups[l].Header, src_, cur_, motivo))
                    return ResultadoComposicion::Fallo;
        // Added only now, so that the footers that closed above never see
        // the row of the next group.
        for (SumSlot &s : sums_)
            s.total += static_cast<long double>(cur_[s.field].toDouble());
        if (!printBand(d_.BandaDetalle, src_, cur_, motivo) || !printSubDetail(motivo))
            return ResultadoComposicion::Fallo;
        ++rows;
        if (ctx_.continuar && !ctx_.continuar())
            return ResultadoComposicion::Cancelado;
        std::swap(prev_, cur_);
        if (!src_.next())
            break;
        readRow();
    }
    cur_ = prev_; // the footers, the summary and the last page footer see the last row
    if (!printFooters(0, motivo) ||
        (d_.BandaSumario && !printBand(*d_.BandaSumario, src_, cur_, motivo)) || !endPage(motivo) ||
        !sink_.finish(motivo))
        return ResultadoComposicion::Fallo;
    if (stats) {
        stats->pages = pages_;
        stats->rows = rows;
    }
    return ResultadoComposicion::Completo;
}

} // namespace

ResultadoComposicion ComponerReport(ReportDesign design, ReportDataSource &datos, PageSink &sink,
                                    const ComposeContext &ctx, QString *motivo,
                                    ComposeStats *stats) {
    QString local;
    return Composer(design, datos, sink, ctx).run(motivo ? motivo : &local, stats);
}

} // namespace co
