#include "runtime/CodePages.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QThread>

#include <memory>
#include <thread>

using namespace tsms;
using namespace tsms::test;

namespace {

/// Tells at its end what it held until then.
struct Holder
{
    ~Holder()
    {
        if (tell)
            *tell = text;
    }

    QString text;
    QString* tell = nullptr;
};

void Hold(const QString& text, QString& told)
{
    thread_local Holder holder;
    holder.text = text;
    holder.tell = &told;
}

// Test programs begin with EndThreadsInOrder, as the programs do.

TEST(ThreadEnd, WhatAThreadKeepsIsWholeUntilItsEnd)
{
    QString told;
    std::thread([&told] { Hold(u"가나다"_q, told); }).join();
    EXPECT_EQ(told, u"가나다"_q);
}

#ifdef Q_OS_WIN // elsewhere the toolkit does not wait for what a thread does at its end
TEST(ThreadEnd, SoItIsInAThreadOfTheToolkit)
{
    QString told;
    const std::unique_ptr<QThread> thread(QThread::create([&told] { Hold(u"가나다"_q, told); }));
    thread->start();
    thread->wait();
    EXPECT_EQ(told, u"가나다"_q);
}
#endif

TEST(ThreadEnd, AThreadThatHasReadCodePagesEnds)
{
    QString text;
    std::thread([&text] { text = FromCodePage("\xB0\xA1", 949) + FromCodePage("\x80", 1252); }).join();
    EXPECT_EQ(text, u"가€"_q);
}

} // namespace
