// A statement that would not end in a person's life is ended with Escape.
#include "common/modGeral.h"
#include "platform/forms/longwork.h"
#include "platform/time/clock.h"
#include "shell/startup.h"
#include "store/parish.h"

#include <QStatusBar>

#include <atomic>
#include <thread>

using namespace std::chrono_literals;

namespace {

class AStatement : public Parish
{
protected:
    AStatement()
    {
        cnBDP.beginTrans();
        for (int i = 0; i < 1000; ++i)
            cnBDP.execute(QString("insert into lugar (codlugar, nomelugar) values ('%1', 'Eira')").arg(i));
        cnBDP.commitTrans();
        cnBDP.onLongStatement(
            [this](std::chrono::milliseconds elapsed) {
                asked = true;
                return statementGoesOn(elapsed);
            },
            LongWork::ended);
        Clock::passAtEachLook(50ms);
        Form* form = make("frmA", [this](TestForm& each) { text = each.put<TextBox>("txt"); });
        form->display();
        text->setFocus();
        window.statusBar()->showMessage("antes");
        QApplication::processEvents();
    }
    ~AStatement() override
    {
        Clock::passAtEachLook({});
        cnBDP.onLongStatement({}, {});
    }

    std::atomic<bool> asked = false; // whether it goes on
    TextBox* text = nullptr;
};

constexpr auto endless = "select count(*) as n from lugar as a, lugar as b, lugar as c, lugar as d where a.nomelugar + "
                         "b.nomelugar + c.nomelugar + d.nomelugar = 1";

} // namespace

TEST_F(AStatement, EndsWithEscapeAndWhatWasTypedMeanwhileIsTypedAfterwards)
{
    QWindow* handle = window.windowHandle();
    const auto key = [](int code, const QString& letters) {
        return new QKeyEvent(QEvent::KeyPress, code, Qt::NoModifier, letters);
    };
    std::thread user([this, handle, keys = QList{key(Qt::Key_A, "a"), key(Qt::Key_Escape, {}), key(Qt::Key_B, "b")}] {
        while (!asked)
            std::this_thread::yield();
        for (QKeyEvent* each : keys)
            QCoreApplication::postEvent(handle, each);
    });
    const Answer ok("OK");
    guarded([&] { const jet::Recordset rows(cnBDP, endless); });
    user.join();
    EXPECT_EQ(ok.given, 1);
    EXPECT_EQ(ok.text, "Ocorreu o erro -2147467259\nA operação foi interrompida com a tecla Escape: nada foi escrito.");
    EXPECT_TRUE(QTest::qWaitFor([&] { return text->text() == "ab"; })) << text->text().toStdString();
    EXPECT_EQ(cnBDP.state(), jet::Connection::Open);
    EXPECT_EQ(jet::Recordset(cnBDP, "select * from lugar").recordCount(), 1000);
}

TEST_F(AStatement, IsToldOfAfterTenSeconds)
{
    EXPECT_TRUE(statementGoesOn(9999ms));
    EXPECT_EQ(window.statusBar()->currentMessage(), "antes");
    EXPECT_TRUE(statementGoesOn(10s));
    EXPECT_EQ(window.statusBar()->currentMessage(),
              "A operação demora há 10 segundos e continua. A tecla Escape interrompe-a.");
    EXPECT_TRUE(statementGoesOn(61s));
    EXPECT_EQ(window.statusBar()->currentMessage(),
              "A operação demora há 61 segundos e continua. A tecla Escape interrompe-a.");
    LongWork::ended();
    EXPECT_EQ(window.statusBar()->currentMessage(), "antes");
}
