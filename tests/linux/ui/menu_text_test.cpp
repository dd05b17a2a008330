#include "linux/ui/menu_text.h"

#include <gtest/gtest.h>

namespace voltmere {
namespace {

TEST(MenuTextTest, TheToolkitShowsADoubledAmpersandOnce)
{
    EXPECT_EQ(menuText("a & b && c_d &", MenuPainter::toolkit), "a && b &&&& c_d &&");
    EXPECT_EQ(menuText("", MenuPainter::toolkit), "");
}

/// What Qt makes of an entry for a host: it turns the first "&" that is not at the end into "_".
QString sentToHost(QString entry)
{
    const qsizetype first = entry.indexOf('&');
    if (first >= 0 && first < entry.size() - 1) {
        entry[first] = '_';
    }
    return entry;
}

/// What a host shows: "_" marks the letter behind it, "__" is one "_".
QString shownByHost(const QString& label)
{
    QString shown;
    for (qsizetype i = 0; i < label.size(); ++i) {
        if (label.at(i) == '_') {
            ++i;
        }
        shown += label.mid(i, 1);
    }
    return shown.remove(QChar(0x200B));
}

TEST(MenuTextTest, AHostShowsTheTextAsItStands)
{
    for (const char* const text : {"", "a", "a & b", "&a", "a&", "&", "&&", "a & b && c", "a_b",
                                   "_a_", "__", "my_mouse <b>", "a__b c_"}) {
        EXPECT_EQ(shownByHost(sentToHost(menuText(text, MenuPainter::trayHost))), text) << text;
    }
}

TEST(MenuTextTest, AHostGetsNoMarkedLetterBesideAnUnderscore)
{
    for (const QString text : {"a & b_c && d__e", "_&_", "&_", "my_mouse & <b>"}) {
        const QString label = sentToHost(menuText(text, MenuPainter::trayHost));
        EXPECT_EQ(QString(label).remove("__").count('_'), 0) << text.toStdString();
        EXPECT_EQ(shownByHost(label), QString(text).replace('&', QChar(0xFF06)));
    }
}

} // namespace
} // namespace voltmere
