#include "output/report_design.h"

namespace co {

ReportControl Control(const QString &name, ControlKind kind, int left, int top, int width,
                      int height) {
    ReportControl c;
    c.Name = name;
    c.Kind = kind;
    c.Left = left;
    c.Top = top;
    c.Width = width;
    c.Height = height;
    return c;
}

ReportBand Banda(const QString &name, BandType type, int height) {
    ReportBand b;
    b.Name = name;
    b.Type = type;
    b.Height = height;
    return b;
}

QVariant RowView::value(const QString &field) const {
    if (!source_ || !hasRow())
        return {};
    const int i = source_->fieldIndex(field);
    return i < 0 || i >= values_->size() ? QVariant() : values_->at(i);
}

ReportControl *ReportBand::control(const QString &name) {
    for (ReportControl &c : Controls)
        if (c.Name == name)
            return &c;
    return nullptr;
}

const ReportControl *ReportBand::control(const QString &name) const {
    return const_cast<ReportBand *>(this)->control(name);
}

QList<ReportBand *> ReportDesign::bands() {
    QList<ReportBand *> out;
    if (PageHeader)
        out << &*PageHeader;
    for (ReportGroup &g : Groups)
        out << &g.Header;
    out << &BandaDetalle;
    if (Detail)
        out << &Detail->Band;
    for (qsizetype i = Groups.size() - 1; i >= 0; --i)
        if (Groups[i].Footer)
            out << &*Groups[i].Footer;
    if (BandaSumario)
        out << &*BandaSumario;
    if (PageFooter)
        out << &*PageFooter;
    return out;
}

QList<const ReportBand *> ReportDesign::bands() const {
    QList<const ReportBand *> out;
    for (ReportBand *b : const_cast<ReportDesign *>(this)->bands())
        out << b;
    return out;
}

ReportControl *ReportDesign::control(const QString &name) {
    for (ReportBand *b : bands())
        if (ReportControl *c = b->control(name))
            return c;
    return nullptr;
}

} // namespace co
