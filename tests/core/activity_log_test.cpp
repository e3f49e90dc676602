#include "core/activity_log.h"
#include "core/statement_trace.h"

#include "support/gtest_qt_printing.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

QStringList linesOf(const QString &path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    QString text = QString::fromUtf8(f.readAll());
    EXPECT_TRUE(text.isEmpty() || text.endsWith(QLatin1String("\r\n")));
    QStringList lines = text.split(QStringLiteral("\r\n"));
    lines.removeLast();
    return lines;
}

class ActivityLogTest : public ::testing::Test {
protected:
    QTemporaryDir dir;
    ActivityLogContext context;
    void SetUp() override {
        ASSERT_TRUE(dir.isValid());
        context.enabled = true;
        context.folder = dir.path();
        context.user = QStringLiteral("mgarcia");
        context.machineName = QStringLiteral("OFICINA1");
        context.address = QStringLiteral("10.0.0.5");
        context.now = QDateTime(QDate(2024, 3, 5), QTime(9, 7, 3));
    }
    QString path() const { return dir.filePath(QStringLiteral("mgarcia.log")); }
    bool log(const QString &action, const QString &form = QStringLiteral("TfOBRAPTRA")) {
        return RegistrarActividad(context, form, QStringLiteral("Partes de Obra"), action);
    }
};

TEST_F(ActivityLogTest, LineNamesTimeActionFormAndStation) {
    ASSERT_TRUE(log(QStringLiteral("Show")));
    EXPECT_EQ(ActivityLogPath(context), path());
    EXPECT_EQ(linesOf(path()),
              QStringList{QStringLiteral(
                  "05/03/2024 09:07:03, Show, TfOBRAPTRA, Partes de Obra, OFICINA1/10.0.0.5, ")});
}

TEST_F(ActivityLogTest, NetworkFailureStandsForTheStation) {
    context.networkFailure = QStringLiteral("No se encuentra el adaptador");
    ASSERT_TRUE(log(QStringLiteral("Close")));
    EXPECT_TRUE(linesOf(path()).at(0).endsWith(
        QStringLiteral(", Partes de Obra, No se encuentra el adaptador, ")));
}

TEST_F(ActivityLogTest, NothingWhenOffOrWithoutForm) {
    context.enabled = false;
    EXPECT_TRUE(log(QStringLiteral("Show")));
    context.enabled = true;
    EXPECT_TRUE(log(QStringLiteral("Show"), QString()));
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(ActivityLogTest, StartClearsTheLog) {
    log(QStringLiteral("Create"));
    log(QStringLiteral("Show"));
    ASSERT_TRUE(log(QStringLiteral("Start,Inicio de sesión")));
    const QStringList lines = linesOf(path());
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.at(0).startsWith(QStringLiteral("05/03/2024 09:07:03, Inicio de sesión, ")));
}

TEST_F(ActivityLogTest, KeepsAboutTheLastHundredLines) {
    for (int i = 0; i < 150; ++i) {
        context.now = QDateTime(QDate(2024, 1, 1), QTime(0, 0)).addSecs(i);
        ASSERT_TRUE(log(QString::number(i)));
    }
    const QStringList lines = linesOf(path());
    ASSERT_EQ(lines.size(), 101);
    EXPECT_TRUE(lines.first().contains(QStringLiteral(", 49, ")));
    EXPECT_TRUE(lines.last().contains(QStringLiteral(", 149, ")));
}

TEST_F(ActivityLogTest, ReadsALogWrittenWithPlainLineFeeds) {
    QFile f(path());
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write("uno\ndos\n");
    f.close();
    log(QStringLiteral("Show"));
    const QStringList lines = linesOf(path());
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines.at(1), QStringLiteral("dos"));
}

TEST_F(ActivityLogTest, UnwritableFolderIsReported) {
    context.folder = dir.filePath(QStringLiteral("no/existe"));
    EXPECT_FALSE(log(QStringLiteral("Show")));
}

TEST(StatementTrace, LineFormat) {
    const QDateTime when(QDate(2024, 3, 5), QTime(14, 2, 9, 45));
    EXPECT_EQ(LineaTrazaSQL(QStringLiteral("ADMIN"), when,
                            QStringLiteral("SELECT *\r\nFROM OBRA\nWHERE 1=1")),
              QStringLiteral("ADMIN|2024/03/05|14:02:09:045|SELECT * FROM OBRA WHERE 1=1"));
}

TEST(StatementTrace, AppendsOnlyWithAFileName) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    EXPECT_TRUE(AnadirTrazaSQL(QString(), QStringLiteral("x")));
    const QString file = dir.filePath(QStringLiteral("traza.txt"));
    ASSERT_TRUE(AnadirTrazaSQL(file, QStringLiteral("uno")));
    ASSERT_TRUE(AnadirTrazaSQL(file, QStringLiteral("dos")));
    EXPECT_EQ(linesOf(file), QStringList({QStringLiteral("uno"), QStringLiteral("dos")}));
    EXPECT_FALSE(
        AnadirTrazaSQL(dir.filePath(QStringLiteral("no/existe.txt")), QStringLiteral("x")));
}

} // namespace
} // namespace co
