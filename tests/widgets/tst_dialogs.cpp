#include "widgets/tcDialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QScopeGuard>
#include <QSpinBox>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTemporaryFile>
#include <QTest>
#include <QTimer>

#include <functional>

namespace
{

/// Looks at the dialog that asks next, and ends it.
template <class Dialog>
void answerWith(const std::function<void(Dialog&)>& acAnswer)
{
    QTimer::singleShot(0, qApp, [acAnswer] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (!dialog)
            return answerWith(acAnswer); // not there yet
        acAnswer(*dialog);
    });
}

} // namespace

/// The dialogs that an operator really sees.
class tst_Dialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }
    void aboutBox();
    void boxes_data();
    void boxes();
    void openFile();
    void saveFile();
    void fileThatIsAddedToIsNotAskedAboutTwice();
    void documentsFolderThatIsNotThere();
    void cancelledFiles();
    void text();
    void integer();
    void item();
    void othersStandInUntilTakenBack();
};

void tst_Dialogs::aboutBox()
{
    bool seen = false;
    answerWith<QMessageBox>([&](QMessageBox& arBox) {
        seen = true;
        QVERIFY(arBox.isModal());
        QVERIFY(!arBox.parent());
        QCOMPARE(arBox.windowTitle(), QString("Title"));
        QCOMPARE(arBox.textFormat(), Qt::RichText);
        QCOMPARE(arBox.text(), QString("<a href=\"https://example.org\">link</a>"));
        QVERIFY(arBox.textInteractionFlags() & Qt::LinksAccessibleByMouse);
        QCOMPARE(arBox.standardButtons(), QMessageBox::Ok);
        // Who clicks the link wants to see the page.
        QVERIFY(arBox.findChild<QLabel*>("qt_msgbox_label")->openExternalLinks());
        arBox.accept();
    });
    tcDialogs::current().about("Title", "<a href=\"https://example.org\">link</a>");
    QVERIFY(seen);
}

void tst_Dialogs::boxes_data()
{
    QTest::addColumn<bool>("warning");
    QTest::newRow("information") << false;
    QTest::newRow("warning") << true;
}

void tst_Dialogs::boxes()
{
    QFETCH(bool, warning);
    QWidget parent;
    bool seen = false;
    answerWith<QMessageBox>([&](QMessageBox& arBox) {
        seen = true;
        QVERIFY(arBox.isModal());
        QCOMPARE(arBox.parentWidget(), &parent);
        QCOMPARE(arBox.windowTitle(), QString("Title"));
        QCOMPARE(arBox.text(), QString("Error with\n<b>bold</b>.csv"));
        // As it stands, on two lines and with its brackets.
        QCOMPARE(arBox.textFormat(), Qt::PlainText);
        QCOMPARE(arBox.icon(), warning ? QMessageBox::Warning : QMessageBox::Information);
        QCOMPARE(arBox.standardButtons(), QMessageBox::Ok);
        arBox.button(QMessageBox::Ok)->click();
    });
    if (warning)
        tcDialogs::current().warning(&parent, "Title", "Error with\n<b>bold</b>.csv");
    else
        tcDialogs::current().information(&parent, "Title", "Error with\n<b>bold</b>.csv");
    QVERIFY(seen);
}

void tst_Dialogs::openFile()
{
    const QString program = QCoreApplication::applicationFilePath();
    answerWith<QFileDialog>([&](QFileDialog& arDialog) {
        QCOMPARE(arDialog.windowTitle(), QString("Custom Preset File"));
        QCOMPARE(arDialog.acceptMode(), QFileDialog::AcceptOpen);
        QCOMPARE(arDialog.fileMode(), QFileDialog::ExistingFile);
        QCOMPARE(arDialog.nameFilters(), QStringList{"preset files (*)"});
        QCOMPARE(arDialog.directory(), QDir(QCoreApplication::applicationDirPath()));
        arDialog.selectFile(program);
        static_cast<QDialog&>(arDialog).done(QDialog::Accepted);
    });
    QCOMPARE(tcDialogs::current().openFile(nullptr, "Custom Preset File",
                                           QCoreApplication::applicationDirPath(),
                                           "preset files (*)"),
             program);
}

void tst_Dialogs::saveFile()
{
    const QString file = QDir::tempPath() + "/chart.csv";
    answerWith<QFileDialog>([&](QFileDialog& arDialog) {
        QCOMPARE(arDialog.acceptMode(), QFileDialog::AcceptSave);
        QCOMPARE(arDialog.selectedFiles(), QStringList{file});
        static_cast<QDialog&>(arDialog).done(QDialog::Accepted);
    });
    QCOMPARE(tcDialogs::current().saveFile(nullptr, "Save", file, "files (*.csv)"), file);
}

/// "Do you want to replace it?" is no question for a file that keeps what it holds.
void tst_Dialogs::fileThatIsAddedToIsNotAskedAboutTwice()
{
    QTemporaryFile file;
    QVERIFY(file.open());
    bool confirmed = true;
    QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen;
    answerWith<QFileDialog>([&](QFileDialog& arDialog) {
        mode = arDialog.acceptMode();
        confirmed = !arDialog.testOption(QFileDialog::DontConfirmOverwrite);
        static_cast<QDialog&>(arDialog).done(QDialog::Accepted);
    });
    QCOMPARE(tcDialogs::current().appendFile(nullptr, "Log", file.fileName(), "files (*)"),
             file.fileName());
    QCOMPARE(mode, QFileDialog::AcceptSave);
    QVERIFY(!confirmed);
}

/// Its name would stand there as that of a file to save into.
void tst_Dialogs::documentsFolderThatIsNotThere()
{
    const QByteArray homeBefore = qgetenv("HOME");
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    const auto back = qScopeGuard([&] { qputenv("HOME", homeBefore); });
    const QString documents
        = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!documents.startsWith(home.path()))
        QSKIP("This system's documents folder does not depend on where home is.");
    QDir folder;
    QStringList chosen;
    const auto look = [&](QFileDialog& arDialog) {
        folder = arDialog.directory();
        chosen = arDialog.selectedFiles();
        arDialog.reject();
    };
    answerWith<QFileDialog>(look);
    tcDialogs::current().saveFile(nullptr, "Save", documents, "files (*.csv)");
    QCOMPARE(folder, QDir(home.path()));
    QCOMPARE(chosen, QStringList{home.path()}); // no name of a file
    answerWith<QFileDialog>(look);
    tcDialogs::current().saveFile(nullptr, "Save", documents + "/chart.csv", "files (*.csv)");
    QCOMPARE(chosen, QStringList{home.path() + "/chart.csv"});
    answerWith<QFileDialog>(look);
    tcDialogs::current().openFile(nullptr, "Open", documents, "files (*.csv)");
    QCOMPARE(folder, QDir(home.path()));
}

void tst_Dialogs::cancelledFiles()
{
    answerWith<QFileDialog>([](QFileDialog& arDialog) { arDialog.reject(); });
    QCOMPARE(tcDialogs::current().openFile(nullptr, "Open", {}, {}), QString());
    answerWith<QFileDialog>([](QFileDialog& arDialog) { arDialog.reject(); });
    QCOMPARE(tcDialogs::current().saveFile(nullptr, "Save", {}, {}), QString());
}

void tst_Dialogs::text()
{
    answerWith<QInputDialog>([](QInputDialog& arDialog) {
        QCOMPARE(arDialog.windowTitle(), QString("Title"));
        QCOMPARE(arDialog.labelText(), QString("Label"));
        QCOMPARE(arDialog.textValue(), QString("old"));
        arDialog.setTextValue(QString());
        arDialog.accept();
    });
    // An empty answer is one.
    QCOMPARE(tcDialogs::current().text(nullptr, "Title", "Label", "old"),
             std::optional<QString>(QString()));
    answerWith<QInputDialog>([](QInputDialog& arDialog) { arDialog.reject(); });
    QCOMPARE(tcDialogs::current().text(nullptr, "Title", "Label", "old"),
             std::optional<QString>());
}

void tst_Dialogs::integer()
{
    answerWith<QInputDialog>([](QInputDialog& arDialog) {
        QCOMPARE(arDialog.intValue(), 5);
        QCOMPARE(arDialog.intMinimum(), 2);
        QCOMPARE(arDialog.intMaximum(), 9);
        QCOMPARE(arDialog.intStep(), 3);
        arDialog.setIntValue(8);
        arDialog.accept();
    });
    QCOMPARE(tcDialogs::current().integer(nullptr, "Title", "Label", {5, 2, 9, 3}),
             std::optional<int>(8));
    answerWith<QInputDialog>([](QInputDialog& arDialog) { arDialog.reject(); });
    QCOMPARE(tcDialogs::current().integer(nullptr, "Title", "Label", {5, 2, 9, 3}),
             std::optional<int>());
}

void tst_Dialogs::item()
{
    const QStringList items{"first", "second"};
    answerWith<QInputDialog>([&](QInputDialog& arDialog) {
        QCOMPARE(arDialog.comboBoxItems(), items);
        QVERIFY(!arDialog.isComboBoxEditable());
        arDialog.setTextValue("second");
        arDialog.accept();
    });
    QCOMPARE(tcDialogs::current().item(nullptr, "Title", "Label", items),
             std::optional<QString>("second"));
    answerWith<QInputDialog>([](QInputDialog& arDialog) { arDialog.reject(); });
    QCOMPARE(tcDialogs::current().item(nullptr, "Title", "Label", items),
             std::optional<QString>());
}

void tst_Dialogs::othersStandInUntilTakenBack()
{
    struct tcSilent : tcDialogs
    {
        QString openFile(QWidget*, const QString&, const QString&, const QString&) override
        {
            return QStringLiteral("said");
        }
    };
    tcSilent silent;
    tcDialogs* own = &tcDialogs::current();
    tcDialogs::install(&silent);
    QCOMPARE(tcDialogs::current().openFile(nullptr, {}, {}, {}), QString("said"));
    tcDialogs::install(nullptr);
    QCOMPARE(&tcDialogs::current(), own);
}

QTEST_MAIN(tst_Dialogs)
#include "tst_dialogs.moc"
