// A main window with a document area, and forms to play with.
#pragma once

#include "platform/forms/controls.h"
#include "platform/forms/focus.h"
#include "platform/forms/forms.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMdiArea>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

// A form whose events can be told by a test.
class TestForm : public Form
{
public:
    explicit TestForm(const QString& name, Window window = Window::Child) : Form(name, window)
    {
        new QVBoxLayout(this);
    }

    template <class Control>
    Control* put(const char* name)
    {
        auto* control = new Control(this);
        control->setObjectName(QString::fromLatin1(name));
        layout()->addWidget(control);
        return control;
    }

    std::function<void()> onLoad, onUnload;
    std::function<bool(UnloadMode)> onQuery;

protected:
    void Form_Load() override { onLoad ? onLoad() : void(); }
    bool Form_QueryUnload(UnloadMode mode) override { return !onQuery || onQuery(mode); }
    void Form_Unload() override { onUnload ? onUnload() : void(); }
};

class House : public testing::Test
{
protected:
    House()
    {
        window.setObjectName(QStringLiteral("frmORV"));
        area = new QMdiArea;
        window.setCentralWidget(area);
        window.resize(1000, 700);
        Focus::install();
        Forms::setMainWindow(&window, area);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    ~House() override
    {
        Forms::clear();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    TestForm* make(const QString& name, const std::function<void(TestForm&)>& fill = {})
    {
        Forms::add(name, [name, fill] {
            auto* form = new TestForm(name);
            if (fill) fill(*form);
            return form;
        });
        return static_cast<TestForm*>(Forms::load(name));
    }

    QMainWindow window;
    QMdiArea* area = nullptr;
};

// Presses a button of the box that comes up next, by its text. Counts itself as answered.
class Answer : public QObject
{
public:
    explicit Answer(QString answer) : answer_(std::move(answer))
    {
        connect(&timer_, &QTimer::timeout, this, [this] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            if (!box) return;
            for (QAbstractButton* candidate : box->buttons()) {
                if (candidate->text() != answer_) continue;
                timer_.stop();
                text = box->text();
                title = box->windowTitle();
                icon = box->icon();
                format = box->textFormat();
                frameTitle = box->windowHandle()->title();
                for (const QAbstractButton* button : box->buttons())
                    buttons << button->text();
                ++given;
                candidate->click();
                return;
            }
        });
        timer_.start(0);
    }

    QString text, title, frameTitle;
    QStringList buttons;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    Qt::TextFormat format = Qt::AutoText;
    int given = 0;

private:
    QString answer_;
    QTimer timer_;
};
