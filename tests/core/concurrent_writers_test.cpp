// Several processes writing one embedded installation at once, through the CLI:
// every statement either lands or fails with a clear text; nothing is corrupted.
#include "support/layer_fixture.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace co {
namespace {

QString writeStatements(const QString &dir, const QString &name, int from, int count) {
    const QString path = dir + u'/' + name;
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    for (int i = from; i < from + count; ++i)
        f.write(QStringLiteral("INSERT INTO PARTE (Numero, Texto) VALUES ('%1', 'parte %1 de %2')\n").arg(i).arg(name).toUtf8());
    return path;
}

QProcess *startCli(const QString &dir, const QString &file) {
    auto *p = new QProcess;
    p->start(QStringLiteral(CO_CLI_PATH), {QStringLiteral("sql"), QStringLiteral("--dir"), dir, QStringLiteral("--opciones"),
                                           QStringLiteral("Silenciosa"), QStringLiteral("--archivo"), file});
    return p;
}

class ConcurrentWriters : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(dir_.isValid());
        ASSERT_EQ(QProcess::execute(QStringLiteral(CO_CLI_PATH), {QStringLiteral("init"), QStringLiteral("--dir"), dir_.path()}), 0);
        ASSERT_EQ(QProcess::execute(QStringLiteral(CO_CLI_PATH),
                                    {QStringLiteral("sql"), QStringLiteral("--dir"), dir_.path(),
                                     QStringLiteral("CREATE TABLE PARTE (Numero INTEGER NOT NULL PRIMARY KEY, Texto VARCHAR(40))")}),
                  0);
    }
    QString query(const QString &sql) {
        QProcess p;
        p.start(QStringLiteral(CO_CLI_PATH), {QStringLiteral("sql"), QStringLiteral("--dir"), dir_.path(), sql});
        p.waitForFinished(60000);
        return QString::fromUtf8(p.readAllStandardOutput());
    }
    QTemporaryDir dir_;
};

TEST_F(ConcurrentWriters, DisjointWritesAllLand) {
    QProcess *a = startCli(dir_.path(), writeStatements(dir_.path(), QStringLiteral("a.sql"), 1, 400));
    QProcess *b = startCli(dir_.path(), writeStatements(dir_.path(), QStringLiteral("b.sql"), 1001, 400));
    ASSERT_TRUE(a->waitForFinished(120000));
    ASSERT_TRUE(b->waitForFinished(120000));
    EXPECT_EQ(a->exitCode(), 0) << a->readAllStandardOutput().toStdString();
    EXPECT_EQ(b->exitCode(), 0) << b->readAllStandardOutput().toStdString();
    delete a;
    delete b;
    EXPECT_EQ(query(QStringLiteral("SELECT COUNT(*) FROM PARTE")), QStringLiteral("800"));
    EXPECT_EQ(query(QStringLiteral("SELECT * FROM pragma_integrity_check")), QStringLiteral("ok"));
}

TEST_F(ConcurrentWriters, ClashingKeysFailClearlyAndOnlyOnce) {
    QProcess *a = startCli(dir_.path(), writeStatements(dir_.path(), QStringLiteral("a.sql"), 1, 120));
    QProcess *b = startCli(dir_.path(), writeStatements(dir_.path(), QStringLiteral("b.sql"), 61, 120));
    ASSERT_TRUE(a->waitForFinished(120000));
    ASSERT_TRUE(b->waitForFinished(120000));
    const QStringList outA = QString::fromUtf8(a->readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    const QStringList outB = QString::fromUtf8(b->readAllStandardOutput()).split(u'\n', Qt::SkipEmptyParts);
    delete a;
    delete b;
    // 60 keys are wanted by both: exactly one of the two writes of each is refused.
    const QStringList failures = outA + outB;
    EXPECT_EQ(failures.size(), 60);
    for (const QString &f : failures)
        EXPECT_TRUE(f.startsWith(QStringLiteral("Error. No es posible ejecutar la sentencia SQL. Motivo: Key violation")))
            << f.toStdString();
    EXPECT_EQ(query(QStringLiteral("SELECT COUNT(*) FROM PARTE")), QStringLiteral("180"));
}

} // namespace
} // namespace co
