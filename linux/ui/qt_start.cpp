#include "linux/ui/qt_start.h"

#include "app/terminal.h"
#include "texts/plain_text.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QtGlobal>

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

/// What Qt has said since its start began, but for what only a developer asks for.
struct Said {
    QtMessageHandler usual = nullptr;
    std::mutex mutex; ///< Qt has threads of its own, which may speak too
    QList<Message> messages;
};

/// Qt hands its messages to a plain function, so what that needs has to stand here.
Said& said()
{
    static Said instance;
    return instance;
}

/// What Qt gives up with is long and names no cause; its first complaint before that does.
[[noreturn]] void giveUp(const QString& farewell)
{
    const QList<Message>& messages = said().messages;
    const QString cause = messages.isEmpty() ? farewell.section('\n', 0, 0) : messages.first().text;
    std::fprintf(stderr,
                 "voltmere: Qt cannot show windows here (%s); check QT_QPA_PLATFORM, install the "
                 "plugin (qt6-wayland for Wayland), or use --list\n",
                 plainText(cause.toStdString()).c_str());
    std::_Exit(exitStatus::cannotRun);
}

void listen(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    const std::lock_guard lock(said().mutex);
    if (type == QtDebugMsg) {
        said().usual(type, context, text);
    } else if (type == QtFatalMsg) {
        giveUp(text);
    } else {
        said().messages.append({type, context.category, text});
    }
}

} // namespace

std::unique_ptr<QApplication> startQt(int& argc, char** argv)
{
    const QtMessageHandler usual = qInstallMessageHandler(nullptr);
    said().usual = usual;
    qInstallMessageHandler(listen);
    auto application = std::make_unique<QApplication>(argc, argv);
    qInstallMessageHandler(usual);
    const std::lock_guard lock(said().mutex);
    for (const Message& message : said().messages) {
        usual(message.type, QMessageLogContext(nullptr, 0, nullptr, message.category.constData()),
              message.text);
    }
    said().messages.clear();
    return application;
}

} // namespace voltmere
