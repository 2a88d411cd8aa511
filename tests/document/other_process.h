// A second process of a test: the test's own program, started again to do one thing and to wait there.
#pragma once

#include <QCoreApplication>
#include <QProcess>

#include <cstdio>

namespace sbd {

/// The other process. It has done its thing when it stands; it ends when told to, or dies.
class OtherProcess {
public:
    /// Starts the test's program with `arguments` and waits for its word.
    explicit OtherProcess(const QStringList& arguments)
    {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(QCoreApplication::applicationFilePath(), arguments);
        process_.waitForReadyRead(20000);
        word_ = QString::fromUtf8(process_.readLine()).trimmed();
    }
    ~OtherProcess() { Kill(); }

    /// What it said.
    [[nodiscard]] QString Word() const { return word_; }
    [[nodiscard]] qint64 Id() const { return process_.processId(); }

    /// Ends it without a chance to clean up.
    void Kill()
    {
        process_.kill();
        process_.waitForFinished();
    }
    /// Lets it come to its end.
    void End()
    {
        process_.closeWriteChannel();
        process_.waitForFinished();
    }

    // What the other side calls.

    static void Say(const char* word)
    {
        std::puts(word);
        std::fflush(stdout);
    }
    static void WaitForEnd()
    {
        while (std::getchar() != EOF) {
        }
    }

private:
    QProcess process_;
    QString word_;
};

} // namespace sbd
