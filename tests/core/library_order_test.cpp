// The libraries keep their order: core, forms, output, masters, works,
// invoicing, reports, exchange; demo stands on core alone; ui and app sit on
// top, and only they may include Qt Widgets or Qt Print Support. A header of a
// later library included by an earlier one fails here, naming the file.

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

const QStringList kOrder = {"core",  "forms",     "output",  "masters",
                            "works", "invoicing", "reports", "exchange"};

// What a library may include of the project's folders.
bool mayInclude(const QString &library, const QString &folder) {
    if (folder == library)
        return true;
    if (library == u"demo")
        return folder == u"core";
    const qsizetype from = kOrder.indexOf(library), to = kOrder.indexOf(folder);
    if (folder == u"ui" || folder == u"app" || folder == u"demo")
        return false;
    return to >= 0 && to < from;
}

bool isWidgetsHeader(const QString &header) {
    static const QRegularExpression widgets(QStringLiteral(
        "^(QtWidgets|QtPrintSupport)/|^Q(Widget|Application|MainWindow|Dialog|Printer|PrintDialog|"
        "PrintPreviewDialog|MessageBox|TableView|LineEdit|PushButton|Label|MdiArea|Menu|MenuBar)"
        "$"));
    return widgets.match(header).hasMatch();
}

QStringList crossings(const QString &root) {
    static const QRegularExpression include(
        QStringLiteral("^\\s*#\\s*include\\s*[<\"]([^>\"]+)[>\"]"));
    QStringList found;
    for (const QString &library : kOrder + QStringList{QStringLiteral("demo")}) {
        QDirIterator it(QDir(root).filePath(library),
                        {QStringLiteral("*.h"), QStringLiteral("*.cpp")}, QDir::Files);
        while (it.hasNext()) {
            QFile file(it.next());
            if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
                continue;
            const QString relative = QDir(root).relativeFilePath(file.fileName());
            while (!file.atEnd()) {
                const QRegularExpressionMatch m = include.match(QString::fromUtf8(file.readLine()));
                if (!m.hasMatch())
                    continue;
                const QString header = m.captured(1);
                const QString folder = header.section(u'/', 0, 0);
                const bool ours =
                    header.contains(u'/') && QDir(QDir(root).filePath(folder)).exists();
                if (isWidgetsHeader(header) || (ours && !mayInclude(library, folder)))
                    found << relative + QStringLiteral(" includes ") + header;
            }
        }
    }
    return found;
}

// The project headers a file includes.
QStringList includesOf(const QString &path) {
    static const QRegularExpression include(QStringLiteral("^\\s*#\\s*include\\s*\"([^\"]+)\""));
    QStringList out;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return out;
    while (!file.atEnd()) {
        const QRegularExpressionMatch m = include.match(QString::fromUtf8(file.readLine()));
        if (m.hasMatch())
            out << m.captured(1);
    }
    return out;
}

// Inside core the statement layer (database.h/.cpp) is the floor the modules
// that run statements stand on: it includes none of the headers that include it.
QStringList statementLayerCrossings(const QString &root) {
    const QDir core(QDir(root).filePath(QStringLiteral("core")));
    const QString layer = QStringLiteral("core/database.h");
    QStringList above;
    for (const QString &name : core.entryList({QStringLiteral("*.h")}, QDir::Files)) {
        const QString header = QStringLiteral("core/") + name;
        if (header != layer && includesOf(core.filePath(name)).contains(layer))
            above << header;
    }
    QStringList found;
    for (const QString &name : {QStringLiteral("database.h"), QStringLiteral("database.cpp")})
        for (const QString &header : includesOf(core.filePath(name)))
            if (above.contains(header))
                found << QStringLiteral("core/") + name + QStringLiteral(" includes ") + header;
    return found;
}

TEST(LibraryOrder, NoLibraryIncludesALaterOneOrTheWidgets) {
    const QStringList found = crossings(QStringLiteral(CO_SOURCE_DIR));
    EXPECT_TRUE(found.isEmpty()) << found.join(u'\n').toStdString();
}

TEST(LibraryOrder, TheCheckSeesACrossing) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    for (const char *folder : {"core", "forms", "works", "ui"})
        ASSERT_TRUE(QDir(dir.path()).mkpath(QString::fromLatin1(folder)));
    auto write = [&](const QString &path, const QByteArray &text) {
        QFile f(QDir(dir.path()).filePath(path));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(text);
    };
    write(QStringLiteral("core/a.h"), "#include \"forms/b.h\"\n#include <QString>\n");
    write(QStringLiteral("forms/b.h"), "#include \"core/a.h\"\n#include <QWidget>\n");
    write(QStringLiteral("works/c.cpp"), "#include \"forms/b.h\"\n#include \"ui/v.h\"\n");
    EXPECT_EQ(crossings(dir.path()),
              (QStringList{"core/a.h includes forms/b.h", "forms/b.h includes QWidget",
                           "works/c.cpp includes ui/v.h"}));
}

TEST(LibraryOrder, TheStatementLayerIncludesNothingBuiltOnIt) {
    const QStringList found = statementLayerCrossings(QStringLiteral(CO_SOURCE_DIR));
    EXPECT_TRUE(found.isEmpty()) << found.join(u'\n').toStdString();
}

TEST(LibraryOrder, TheStatementLayerCheckSeesAModuleIncludedUpwards) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    ASSERT_TRUE(QDir(dir.path()).mkpath(QStringLiteral("core")));
    auto write = [&](const QString &path, const QByteArray &text) {
        QFile f(QDir(dir.path()).filePath(path));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly));
        f.write(text);
    };
    write(QStringLiteral("core/database.h"), "#include \"core/query.h\"\n");
    write(QStringLiteral("core/query.h"), "#include <QString>\n");
    write(QStringLiteral("core/copia.h"), "#include \"core/database.h\"\n");
    EXPECT_TRUE(statementLayerCrossings(dir.path()).isEmpty());
    write(QStringLiteral("core/database.cpp"),
          "#include \"core/database.h\"\n#include \"core/copia.h\"\n#include \"core/query.h\"\n");
    EXPECT_EQ(statementLayerCrossings(dir.path()),
              QStringList{QStringLiteral("core/database.cpp includes core/copia.h")});
}

} // namespace
