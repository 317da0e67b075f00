#include "database/code_page.h"
#include "database/dbase_table.h"
#include "support/dbase_writer.h"
#include "support/test_environment.h"

#include <QBuffer>
#include <QDate>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

namespace {

QList<cDbaseWriter::Field> SmallListFields()
{
    return {{"Ref", 'C', 8}, {"Name", 'C', 26},  {"Grade", 'N', 3},   {"Cat", 'C', 1},
            {"DOB", 'D', 8}, {"Active", 'L', 1}, {"Score", 'N', 5, 1}};
}

QString WriteFile(const QTemporaryDir &folder, const QString &name, const QByteArray &bytes)
{
    const QString path = folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return QString();
    file.write(bytes);
    return path;
}

} // namespace

class TestDbaseTable : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(folder_.isValid()); }

    void opensSharedGradingListByAnyFormOfItsName_data()
    {
        QTest::addColumn<QString>("table");
        QTest::newRow("with extension") << QStringLiteral("Players.dbf");
        QTest::newRow("without extension") << QStringLiteral("Players");
        QTest::newRow("capitals") << QStringLiteral("PLAYERS.DBF");
        QTest::newRow("small letters") << QStringLiteral("players");
    }
    void opensSharedGradingListByAnyFormOfItsName()
    {
        QFETCH(QString, table);
        QVERIFY(
            !CopySharedFile(QStringLiteral("grading-list/Players.dbf"), folder_.path()).isEmpty());
        cDbaseTable dbf;
        QVERIFY2(dbf.Open(folder_.path(), table), qPrintable(dbf.ErrorText()));
        QCOMPARE(dbf.RowCount(), 2000);
        QCOMPARE(dbf.Fields().size(), 20);
        QCOMPARE(dbf.CodePage(), CodePage::Windows1252);
        QVERIFY(dbf.MissingFields(
                       {QStringLiteral("Ref"), QStringLiteral("FIDECODE"), QStringLiteral("cat1")})
                    .isEmpty());
        QCOMPARE(dbf.MissingFields({QStringLiteral("Nope")}), QStringList{QStringLiteral("Nope")});
    }

    void readsValuesOfSharedGradingList()
    {
        QVERIFY(
            !CopySharedFile(QStringLiteral("grading-list/Players.dbf"), folder_.path()).isEmpty());
        cDbaseTable dbf;
        QVERIFY(dbf.Open(folder_.path(), QStringLiteral("Players")));
        QVERIFY(dbf.Next());
        QCOMPARE(dbf.RowNumber(), 1);
        QCOMPARE(dbf.Value(QStringLiteral("Ref")).toString(), QStringLiteral("100000E"));
        QCOMPARE(dbf.Value(QStringLiteral("Name")).toString(),
                 QStringLiteral("Smith-Jones, Helen"));
        QCOMPARE(dbf.Value(QStringLiteral("Sex")).toString(), QStringLiteral("F"));
        QVERIFY(dbf.Value(QStringLiteral("Age")).isNull());
        QCOMPARE(dbf.Value(QStringLiteral("DOB")).toDate(), QDate(1932, 8, 8));
        QCOMPARE(dbf.Value(QStringLiteral("Grade")).toInt(), 9);
        QCOMPARE(dbf.Value(QStringLiteral("Cat")).toString(), QStringLiteral("E"));
        // A number field filled with stars is a number the list does not give.
        QVERIFY(dbf.Value(QStringLiteral("RGrade1")).isNull());
        QVERIFY(dbf.Value(QStringLiteral("FIDECode")).isNull());
        QVERIFY(dbf.Value(QStringLiteral("NoSuchField")).isNull());
        QVERIFY(dbf.Next());
        QCOMPARE(dbf.Value(QStringLiteral("FIDECode")).toLongLong(), 400001);
        QCOMPARE(dbf.Value(QStringLiteral("Grade")).toInt(), 0);
        int rows = 2;
        while (dbf.Next())
            ++rows;
        QVERIFY(!dbf.Failed());
        QCOMPARE(rows, 2000);
        QVERIFY(!dbf.Next());
    }

    void readsLogicalFieldsAndBlankDatesOfDosFiles()
    {
        QVERIFY(!CopySharedFile(QStringLiteral("dos/Velmora.dbf"), folder_.path()).isEmpty());
        cDbaseTable dbf;
        QVERIFY(dbf.Open(folder_.path(), QStringLiteral("velmora")));
        QCOMPARE(dbf.RowCount(), 6);
        QVERIFY(dbf.Next());
        QCOMPARE(dbf.Value(QStringLiteral("Locked")).typeId(), int(QMetaType::Bool));
        QCOMPARE(dbf.Value(QStringLiteral("Locked")).toBool(), true);
        QCOMPARE(dbf.Value(QStringLiteral("T_Date")).toDate(), QDate(1997, 3, 11));
        QVERIFY(dbf.Next());
        QVERIFY(dbf.Next());
        QCOMPARE(dbf.Value(QStringLiteral("T_Date")).toDate(), QDate(1901, 3, 13));
        QVERIFY(dbf.Value(QStringLiteral("T_End")).isNull()); // "00000000"
    }

    void readsEveryFieldTypeAndSkipsDeletedRows()
    {
        cDbaseWriter writer(SmallListFields());
        writer.AddRow({"100005", "Digits Only", "150", "A", "19800102", "T", "12.5"});
        writer.AddRow({"123456Z", "Deleted Player", "140", "B", "", "F", ""}, true);
        writer.AddRow({"123457Y", "Zero Grade", "0", "C", "00000000", "?", "-3.0"});
        writer.AddRow({"", "", "", "", "", "", ""});
        QVERIFY(writer.Save(folder_.filePath(QStringLiteral("typed.dbf"))));

        cDbaseTable dbf;
        QVERIFY(dbf.Open(folder_.path(), QStringLiteral("TYPED")));
        QCOMPARE(dbf.RowCount(), 4);
        QVERIFY(dbf.Next());
        QCOMPARE(dbf.Value(QStringLiteral("Ref")).toString(), QStringLiteral("100005"));
        QCOMPARE(dbf.Value(QStringLiteral("Grade")).typeId(), int(QMetaType::LongLong));
        QCOMPARE(dbf.Value(QStringLiteral("Grade")).toInt(), 150);
        QCOMPARE(dbf.Value(QStringLiteral("DOB")).toDate(), QDate(1980, 1, 2));
        QCOMPARE(dbf.Value(QStringLiteral("Active")).toBool(), true);
        QCOMPARE(dbf.Value(QStringLiteral("Score")).typeId(), int(QMetaType::Double));
        QCOMPARE(dbf.Value(QStringLiteral("Score")).toDouble(), 12.5);

        QVERIFY(dbf.Next()); // the deleted row is passed over
        QCOMPARE(dbf.RowNumber(), 3);
        QCOMPARE(dbf.Value(QStringLiteral("Name")).toString(), QStringLiteral("Zero Grade"));
        QCOMPARE(dbf.Value(QStringLiteral("Grade")).toInt(), 0);
        QVERIFY(!dbf.Value(QStringLiteral("Grade")).isNull());
        QVERIFY(dbf.Value(QStringLiteral("DOB")).isNull());
        QVERIFY(dbf.Value(QStringLiteral("Active")).isNull());
        QCOMPARE(dbf.Value(QStringLiteral("Score")).toDouble(), -3.0);

        QVERIFY(dbf.Next());
        for (const char *name : {"Ref", "Name", "Grade", "Cat", "DOB", "Active", "Score"})
            QVERIFY2(dbf.Value(QString::fromLatin1(name)).isNull(), name);
        QVERIFY(!dbf.Next());
        QVERIFY(!dbf.Failed());
    }

    void keepsLeadingBlanksOfTextAndDropsTrailingOnes()
    {
        cDbaseWriter writer({{"Name", 'C', 12}});
        writer.AddRow({"  Ann Lee"});
        cDbaseTable dbf;
        QByteArray bytes = writer.Bytes();
        QBuffer buffer(&bytes);
        QVERIFY(buffer.open(QIODevice::ReadOnly));
        QVERIFY(dbf.Open(&buffer, QStringLiteral("buffer")));
        QVERIFY(dbf.Next());
        QCOMPARE(dbf.Value(0).toString(), QStringLiteral("  Ann Lee"));
    }

    void decodesCodePage1252ByDefault()
    {
        cDbaseWriter writer({{"Name", 'C', 20}});
        writer.AddRow({"M\xfcller \x80\x93"});
        QVERIFY(writer.Save(folder_.filePath(QStringLiteral("ansi.dbf"))));
        cDbaseTable dbf;
        QVERIFY(dbf.Open(folder_.path(), QStringLiteral("ansi")));
        QCOMPARE(dbf.CodePage(), CodePage::Windows1252);
        QVERIFY(dbf.Next());
        QCOMPARE(dbf.Value(0).toString(), QStringLiteral("M\u00fcller \u20ac\u201c"));
    }

    void decodesTheCodePageOfTheLanguageByte()
    {
        cDbaseWriter dos({{"Name", 'C', 20}}, 0x02);
        dos.AddRow({"M\x81ller \x9c"});
        QVERIFY(dos.Save(folder_.filePath(QStringLiteral("oem.dbf"))));
        cDbaseTable dbf;
        QVERIFY(dbf.Open(folder_.path(), QStringLiteral("oem")));
        QCOMPARE(dbf.CodePage(), CodePage::Dos850);
        QVERIFY(dbf.Next());
        QCOMPARE(dbf.Value(0).toString(), QStringLiteral("M\u00fcller \u00a3"));

        cDbaseWriter us({{"Name", 'C', 20}}, 0x01);
        us.AddRow({"\xe1\x9b"});
        QVERIFY(us.Save(folder_.filePath(QStringLiteral("us.dbf"))));
        QVERIFY(dbf.Open(folder_.path(), QStringLiteral("us")));
        QCOMPARE(dbf.CodePage(), CodePage::Dos437);
        QVERIFY(dbf.Next());
        QCOMPARE(dbf.Value(0).toString(), QStringLiteral("\u00df\u00a2"));
    }

    void decodesTheCodePageOfACpgFileBeside()
    {
        cDbaseWriter writer({{"Name", 'C', 20}}, 0x02);
        writer.AddRow({"Bj\xc3\xb8rn"});
        QVERIFY(writer.Save(folder_.filePath(QStringLiteral("utf.dbf"))));
        QVERIFY(!WriteFile(folder_, QStringLiteral("UTF.CPG"), "UTF-8\n").isEmpty());
        cDbaseTable dbf;
        QVERIFY(dbf.Open(folder_.path(), QStringLiteral("utf")));
        QCOMPARE(dbf.CodePage(), CodePage::Utf8);
        QVERIFY(dbf.Next());
        QCOMPARE(dbf.Value(0).toString(), QStringLiteral("Bj\u00f8rn"));
    }

    void namesCodePages()
    {
        QCOMPARE(CodePage::OfName(QStringLiteral("ANSI 1252")), CodePage::Windows1252);
        QCOMPARE(CodePage::OfName(QStringLiteral("windows-1252")), CodePage::Windows1252);
        QCOMPARE(CodePage::OfName(QStringLiteral("850")), CodePage::Dos850);
        QCOMPARE(CodePage::OfName(QStringLiteral("utf8")), CodePage::Utf8);
        QCOMPARE(CodePage::OfName(QStringLiteral("KOI8-R")), 0);
        QCOMPARE(CodePage::OfLanguageByte(0x57), CodePage::Windows1252);
        QCOMPARE(CodePage::OfLanguageByte(0x00), 0);
    }

    void refusesATruncatedFileWhenOpened()
    {
        cDbaseWriter writer(SmallListFields());
        for (int row = 0; row < 10; ++row)
            writer.AddRow({"1000" + QByteArray::number(row) + "A", "Name", "100", "A"});
        const QByteArray whole = writer.Bytes();
        QVERIFY(!WriteFile(folder_, QStringLiteral("cut.dbf"), whole.left(whole.size() - 200))
                     .isEmpty());
        cDbaseTable dbf;
        QVERIFY(!dbf.Open(folder_.path(), QStringLiteral("cut")));
        QVERIFY(dbf.ErrorText().contains(QStringLiteral("damaged")));
        QVERIFY(dbf.ErrorText().contains(QStringLiteral("should hold 10 rows")));
        QVERIFY(!dbf.IsOpen());
        QVERIFY(!dbf.Next());
    }

    void stopsWithAFaultWhenAStreamEndsEarly()
    {
        cDbaseWriter writer({{"Ref", 'C', 8}});
        for (int row = 0; row < 5; ++row)
            writer.AddRow({"12345" + QByteArray::number(row) + "A"});
        const QByteArray bytes = writer.Bytes().left(32 + 32 + 1 + 9 * 3 + 4);
        // A sequential device has no size to check at opening, so the shortfall is
        // met while reading.
        class cStream : public QIODevice
        {
        public:
            explicit cStream(QByteArray bytes) : bytes_(std::move(bytes)) {}
            bool isSequential() const override { return true; }

        protected:
            qint64 readData(char *data, qint64 size) override
            {
                const qint64 count = qMin(size, qint64(bytes_.size()) - at_);
                memcpy(data, bytes_.constData() + at_, size_t(count));
                at_ += count;
                return count;
            }
            qint64 writeData(const char *, qint64) override { return -1; }

        private:
            QByteArray bytes_;
            qint64 at_ = 0;
        };
        cStream stream(bytes);
        QVERIFY(stream.open(QIODevice::ReadOnly));
        cDbaseTable dbf;
        QVERIFY2(dbf.Open(&stream, QStringLiteral("stream")), qPrintable(dbf.ErrorText()));
        int rows = 0;
        while (dbf.Next())
            ++rows;
        QVERIFY(dbf.Failed());
        QVERIFY(dbf.ErrorText().contains(QStringLiteral("ends after 3")));
        QCOMPARE(rows, 0); // rows are read a block at a time, and the block was short
    }

    void refusesFilesThatAreNotDbaseTables_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");
        cDbaseWriter writer({{"Ref", 'C', 8}});
        writer.AddRow({"1A"});
        const QByteArray good = writer.Bytes();

        QTest::newRow("empty") << QByteArray() << QStringLiteral("too short");
        QTest::newRow("text") << QByteArray("Ref,Name\n1A,Smith\n")
                              << QStringLiteral("not a dBase");
        QByteArray seven = good;
        seven[0] = 0x04;
        QTest::newRow("dBase 7") << seven << QStringLiteral("not a dBase");
        QByteArray shortHeader = good;
        shortHeader[8] = char(0xFF);
        shortHeader[9] = 0x7F;
        QTest::newRow("header past the end") << shortHeader << QStringLiteral("cut short");
        QByteArray noWidth = good;
        noWidth[32 + 16] = 0;
        QTest::newRow("field without width") << noWidth << QStringLiteral("no width");
        QByteArray oddType = good;
        oddType[32 + 11] = 'Q';
        QTest::newRow("unknown field type") << oddType << QStringLiteral("of a kind");
        QByteArray narrowRow = good;
        narrowRow[10] = 4;
        QTest::newRow("fields wider than rows")
            << narrowRow << QStringLiteral("wider than its rows");
        QByteArray noFields = good;
        noFields[32] = 0x0D;
        QTest::newRow("no fields") << noFields << QStringLiteral("no fields");
        QByteArray manyRows = good;
        manyRows[7] = char(0x90);
        QTest::newRow("impossible row count") << manyRows << QStringLiteral("not possible");

        cDbaseWriter list(SmallListFields());
        for (int row = 0; row < 200; ++row)
            list.AddRow({"1000" + QByteArray::number(row) + "A", "Name", "100", "A"});
        const QByteArray longList = list.Bytes();
        // The header says one byte more than its fields take: every row would be
        // read a byte late.
        QByteArray longHeader = longList;
        longHeader[8] = char(longHeader[8] + 1);
        QTest::newRow("header one byte too long")
            << longHeader << QStringLiteral("its header length, 258, does not agree with its 7");
        QByteArray fewRows = longList;
        fewRows[4] = 100;
        QTest::newRow("row count smaller than the rows")
            << fewRows << QStringLiteral("its header counts 100 rows, but the file holds more");
        QByteArray longRows = longList;
        longRows[10] = char(longRows[10] + 1);
        QTest::newRow("rows longer than the fields")
            << longRows << QStringLiteral("its rows are 54 bytes long, but its fields take 53");
    }

    void refusesARowWithoutDeletionFlag()
    {
        cDbaseWriter writer(SmallListFields());
        for (int row = 0; row < 10; ++row)
            writer.AddRow({"1000" + QByteArray::number(row) + "A", "Name", "100", "A"});
        QByteArray bytes = writer.Bytes();
        const int headerLength = 32 + 7 * 32 + 1;
        bytes[headerLength + 4 * 53] = 'X';
        QVERIFY(!WriteFile(folder_, QStringLiteral("flag.dbf"), bytes).isEmpty());
        cDbaseTable dbf;
        QVERIFY2(dbf.Open(folder_.path(), QStringLiteral("flag")), qPrintable(dbf.ErrorText()));
        int rows = 0;
        while (dbf.Next())
            ++rows;
        QCOMPARE(rows, 4);
        QVERIFY(dbf.Failed());
        QVERIFY2(
            dbf.ErrorText().contains(QStringLiteral("row 5 does not begin with a deletion flag")),
            qPrintable(dbf.ErrorText()));
    }
    void refusesFilesThatAreNotDbaseTables()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        QVERIFY(!WriteFile(folder_, QStringLiteral("bad.dbf"), bytes).isEmpty());
        cDbaseTable dbf;
        QVERIFY(!dbf.Open(folder_.path(), QStringLiteral("bad")));
        QVERIFY2(dbf.ErrorText().contains(reason), qPrintable(dbf.ErrorText()));
        QVERIFY(dbf.ErrorText().contains(QStringLiteral("bad.dbf")));
    }

    void saysWhenTheFileIsMissing()
    {
        cDbaseTable dbf;
        QVERIFY(!dbf.Open(folder_.path(), QStringLiteral("absent.dbf")));
        QVERIFY(dbf.ErrorText().contains(QStringLiteral("cannot be found")));
        QVERIFY(!dbf.Open(folder_.filePath(QStringLiteral("no-such-folder")),
                          QStringLiteral("Players")));
        QVERIFY(dbf.ErrorText().contains(QStringLiteral("cannot be found")));
    }

private:
    QTemporaryDir folder_;
};

VELMORA_TEST_MAIN(TestDbaseTable)
#include "test_dbase_table.moc"
