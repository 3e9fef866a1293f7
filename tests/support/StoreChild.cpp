// A second process for tests of the store: store_child VERB FOLDER. It works on the store of that folder and is
// killed, answered or waited for by the test.
//   hold       keeps the file locked for itself until its standard input ends
//   open       opens the store as the program does, with a service object that tells its messages
//   openplain  the same before there is a service object; the plain box is told and answered
//   ends       stores one game's end after the other (workout, result, state), each as one commit
#include "domain/Store.h"
#include "platform/Files.h"
#include "platform/RuntimeError.h"
#include "platform/store/Statement.h"
#include "shell/program/modMain.h"
#include "tests/support/RecordingFramework.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <cstdio>
#include <iterator>
#include <map>

using namespace Qt::StringLiterals;

namespace
{
void Tell(const QString &text)
{
    std::printf("%s\n", text.toUtf8().constData());
    std::fflush(stdout);
}

class TellingFramework final : public RecordingFramework
{
public:
    void ShowError(const QString &Message, const QString &ErrDesc, QWidget *) override
    {
        Tell(u"ShowError|"_s + Message + u'|' + ErrDesc);
    }
};

void Hold()
{
    Connection &store = modMain::GetConnection();
    Execute(store.Handle(), "begin exclusive");
    Tell(u"held"_s);
    while (std::getchar() != EOF) {
    }
}

void Open()
{
    modMain::GetConnection();
    Tell(u"opened"_s);
}

void OpenWithMessages()
{
    modMain::Framework = std::make_shared<TellingFramework>();
    Open();
}

void OpenPlain()
{
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, [] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (box == nullptr) return;
        Tell(u"plain box|"_s + box->text());
        box->accept();
    });
    answer.start(10);
    Open();
}

void AddRow(const QString &select, const QVariantList &keys, const std::map<QString, QVariant> &columns)
{
    const auto set = modMain::GetRecordset(select, keys);
    Rows(set).AddNew();
    for (const auto &[name, value] : columns) set->SetValue(name, value);
    set->Update();
}

void StoreEnds()
{
    Tell(u"begun"_s);
    const int first = LongOf(modMain::GetRecordset(u"select count(*) as Number from Workout"_s)->Value(u"Number"));
    for (int end = first + 1;; ++end) {
        modMain::OneCommit(u"Error."_s, [end] {
            AddRow(u"select * from Workout where WorkoutKey=?"_s, {0},
                   {{u"WorkoutPlayer"_s, end}, {u"WorkoutTimestamp"_s, 46000.0}});
            AddRow(u"select * from GamePlayed where GamePlayedKey=?"_s, {0},
                   {{u"GamePlayedPlayer"_s, end}, {u"GamePlayedGame"_s, 1}, {u"GamePlayedTimestamp"_s, 46000.5}});
            AddRow(
                u"select * from PlayerGame where PlayerGamePlayer=? and PlayerGameGame=?"_s, {end, 1},
                {{u"PlayerGamePlayer"_s, end}, {u"PlayerGameGame"_s, 1}, {u"PlayerGameInfo"_s, QString(900, u'x')}});
        });
        Tell(QString::number(end));
    }
}
} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    const QStringList words = QApplication::arguments();
    if (words.size() != 3) return 2;
    SetProgramFolder(words[2]);
    const std::map<QString, void (*)()> verbs{
        {u"hold"_s, Hold}, {u"open"_s, OpenWithMessages}, {u"openplain"_s, OpenPlain}, {u"ends"_s, StoreEnds}};
    const auto verb = verbs.find(words[1]);
    if (verb == verbs.end()) return 2;
    verb->second();
    return 0;
}
