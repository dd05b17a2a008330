#include "app/qt_start.h"

#include "app/exit_status.h"
#include "platform/posix/plain_text.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <cstdio>
#include <cstdlib>
#include <mutex>

namespace voltmere {

namespace {

struct Message {
    QtMsgType type;
    QByteArray category;
    QString text;
};

// Qt hands its messages to a plain function, from any of its threads.
std::mutex saidMutex;

/// What Qt has said since the start began.
QList<Message>& said()
{
    static QList<Message> messages;
    return messages;
}

/// What Qt gives up with is long and names no cause; its first complaint before that does.
void keepOrGiveUp(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    const std::lock_guard lock(saidMutex);
    if (type != QtFatalMsg) {
        said().append({type, context.category, text});
        return;
    }
    const QString cause = said().isEmpty() ? text.section('\n', 0, 0) : said().first().text;
    std::fprintf(stderr,
                 "voltmere: Qt cannot show windows here (%s); check QT_QPA_PLATFORM, install the "
                 "plugin (qt6-wayland for Wayland), or use --list\n",
                 plainLine(cause.toStdString()).c_str());
    std::_Exit(exitStatus::cannotRun);
}

} // namespace

std::unique_ptr<QApplication> startQt(int& argc, char** argv)
{
    const QtMessageHandler usual = qInstallMessageHandler(keepOrGiveUp);
    auto application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(usual);
    const std::lock_guard lock(saidMutex);
    for (const Message& message : said()) {
        qt_message_output(message.type,
                          QMessageLogContext(nullptr, 0, nullptr, message.category.constData()),
                          message.text);
    }
    said().clear();
    return application;
}

} // namespace voltmere
