// The INI reader against input nobody would write by hand: random bytes and
// random lines must load, answer and save without a crash or a hang (the test
// build runs under the sanitizers), and well-formed files must come back byte
// for byte. The generator is seeded, so a failure repeats.
#include "core/ini_file.h"

#include "support/gtest_qt_printing.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <random>

namespace co {
namespace {

class IniFuzz : public ::testing::Test {
protected:
    QString write(const QByteArray &bytes) {
        const QString path = dir_.filePath(QStringLiteral("fuzz.ini"));
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(bytes);
        return path;
    }
    QByteArray read(const QString &path) {
        QFile f(path);
        EXPECT_TRUE(f.open(QIODevice::ReadOnly));
        return f.readAll();
    }
    int pick(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }

    // Bytes drawn mostly from what gives INI files their shape.
    QByteArray randomBytes(int size) {
        static const QByteArray shaped("[]=;# \t\r\n\r\nabcAZ09_.\"'\\");
        static const QList<QByteArray> pieces = {
            "\xC3\xB1", "\xE2\x82\xAC", "\xEF\xBB\xBF",      "\x80",
            "\xFF",     "\xC3",         QByteArray(1, '\0'), "[Configuración]"};
        QByteArray out;
        while (out.size() < size) {
            const int kind = pick(10);
            if (kind < 6)
                out += shaped.at(pick(int(shaped.size())));
            else if (kind < 8)
                out += pieces.at(pick(int(pieces.size())));
            else
                out += char(pick(256));
        }
        return out;
    }

    QString randomName() {
        static const QString letters = QStringLiteral("abcdeABCDEñÑáéÓ_ 09");
        QString s;
        const int n = 1 + pick(8);
        for (int i = 0; i < n; ++i)
            s += letters.at(pick(int(letters.size())));
        return s.trimmed().isEmpty() ? QStringLiteral("k") : s.trimmed();
    }

    // Every key listed has a value, and the whole answers without failing.
    static void answers(const IniFile &ini) {
        for (const QString &section : ini.sections())
            for (const QString &key : ini.keys(section))
                EXPECT_TRUE(ini.value(section, key).has_value())
                    << section.toStdString() << "/" << key.toStdString();
        (void)ini.malformedLines();
        (void)ini.text();
    }

    static QHash<QString, QString> allValues(const IniFile &ini) {
        QHash<QString, QString> out;
        for (const QString &section : ini.sections())
            for (const QString &key : ini.keys(section))
                out.insert(section.toLower() + u'\x1f' + key.toLower(),
                           ini.value(section, key).value_or(QString()));
        return out;
    }

    // The values of every section but the one the fuzzing writes to.
    static QHash<QString, QString> outside(QHash<QString, QString> values) {
        values.removeIf(
            [](const auto &it) { return it.key().startsWith(QStringLiteral("sección fuzz\x1f")); });
        return values;
    }

    // What a reader must give for well-formed lines: the first section of a
    // name, the first key of a name in it, values trimmed.
    static QHash<QString, QString> model(const QStringList &lines) {
        QHash<QString, QString> out;
        QStringList seen;
        QString current;
        bool active = false;
        for (const QString &line : lines) {
            const QString t = line.trimmed();
            if (t.startsWith(u'[') && t.indexOf(u']') > 0) {
                current = t.mid(1, t.indexOf(u']') - 1).trimmed().toLower();
                active = !seen.contains(current);
                seen << current;
            } else if (active && !t.startsWith(u';') && !t.startsWith(u'#') &&
                       t.indexOf(u'=') > 0) {
                const QString id = current + u'\x1f' + t.left(t.indexOf(u'=')).trimmed().toLower();
                if (!out.contains(id))
                    out.insert(id, t.mid(t.indexOf(u'=') + 1).trimmed());
            }
        }
        return out;
    }

    QTemporaryDir dir_;
    std::mt19937 rng_{20240611u};
};

TEST_F(IniFuzz, RandomBytesLoadAnswerAndSurviveAWrite) {
    ASSERT_TRUE(dir_.isValid());
    for (int round = 0; round < 300; ++round) {
        const QByteArray bytes = randomBytes(pick(1500));
        const QString path = write(bytes);
        IniFile ini = IniFile::load(path);
        ASSERT_EQ(ini.status(), IniFile::Status::Ok) << round;
        answers(ini);
        const QHash<QString, QString> before = allValues(ini);

        // An unchanged file saves to what reads back the same.
        ASSERT_TRUE(ini.save()) << round;
        const IniFile again = IniFile::load(path);
        EXPECT_EQ(again.text(), ini.text()) << round;
        EXPECT_EQ(allValues(again), before) << round;

        // One key set leaves every other value as it was.
        const QString value = round % 3 == 0 ? QStringLiteral("€ ñ 値") : QStringLiteral("valor ñ");
        ASSERT_TRUE(ini.setValue(QStringLiteral("Sección Fuzz"), QStringLiteral("Clave"), value))
            << round;
        ASSERT_TRUE(ini.save()) << round;
        const IniFile changed = IniFile::load(path);
        EXPECT_EQ(changed.value(QStringLiteral("sección fuzz"), QStringLiteral("clave")), value)
            << round;
        EXPECT_EQ(outside(allValues(changed)), outside(before)) << round << "\n"
                                                                << bytes.toHex().toStdString();
        if (HasFailure())
            return;
    }
}

TEST_F(IniFuzz, InvalidArgumentsToSetValueAreRefusedAndChangeNothing) {
    for (int round = 0; round < 400; ++round) {
        IniFile ini = IniFile::load(write(randomBytes(pick(400))));
        const QString text = ini.text();
        QString section = randomName(), key = randomName(), value = randomName();
        switch (pick(6)) {
        case 0:
            section = u'[' + section;
            break;
        case 1:
            key += u'=';
            break;
        case 2:
            value += QStringLiteral("\nOtra=1");
            break;
        case 3:
            section = QStringLiteral("  ");
            break;
        case 4:
            key = u';' + key;
            break;
        default:
            section += QStringLiteral("]x");
            break;
        }
        EXPECT_FALSE(ini.setValue(section, key, value))
            << section.toStdString() << "|" << key.toStdString();
        EXPECT_EQ(ini.text(), text);
    }
}

// Well-formed files, in either encoding and either line end, come back byte for
// byte, and give the first value of each name.
TEST_F(IniFuzz, WellFormedFilesRoundTripByteForByte) {
    for (int round = 0; round < 250; ++round) {
        const bool crlf = pick(2) == 1, utf8 = pick(2) == 1, bom = utf8 && pick(4) == 0,
                   finalEol = pick(5) != 0;
        QStringList lines;
        bool inSection = false;
        const int count = 1 + pick(30);
        for (int i = 0; i < count; ++i) {
            const int kind = pick(10);
            if (kind < 2 || !inSection) {
                const QString name = randomName();
                lines << (pick(2) ? u'[' + name + u']'
                                  : QStringLiteral(" [ ") + name + QStringLiteral(" ] "));
                inSection = true;
            } else if (kind < 7) {
                const QString key = randomName(), value = pick(4) ? randomName() : QString();
                lines << key + (pick(2) ? QStringLiteral("=") : QStringLiteral(" = ")) + value;
            } else if (kind < 8) {
                lines << (pick(2) ? QStringLiteral("; ") : QStringLiteral("# ")) + randomName();
            } else {
                lines << QString();
            }
        }
        const QString eol = crlf ? QStringLiteral("\r\n") : QStringLiteral("\n");
        QString text = lines.join(eol);
        if (finalEol)
            text += eol;
        QByteArray bytes = utf8 ? text.toUtf8() : text.toLatin1();
        if (bom)
            bytes.prepend("\xEF\xBB\xBF");
        const QString path = write(bytes);
        const IniFile ini = IniFile::load(path);
        ASSERT_EQ(ini.status(), IniFile::Status::Ok);
        EXPECT_EQ(ini.text(), text) << round;
        ASSERT_TRUE(ini.save()) << round;
        EXPECT_EQ(read(path), bytes) << round;
        EXPECT_EQ(allValues(ini), model(lines)) << round << "\n" << text.toStdString();
    }
}

} // namespace
} // namespace co
