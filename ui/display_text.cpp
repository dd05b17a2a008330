#include "ui/display_text.h"

#include <QTextDocument>

namespace voltmere {

namespace {

bool breaksLine(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        return false;
    }
}

bool reordersNeighbours(QChar character)
{
    switch (character.direction()) {
    case QChar::DirLRE:
    case QChar::DirRLE:
    case QChar::DirLRO:
    case QChar::DirRLO:
    case QChar::DirPDF:
    case QChar::DirLRI:
    case QChar::DirRLI:
    case QChar::DirFSI:
    case QChar::DirPDI:
        return true;
    default:
        return false;
    }
}

} // namespace

QString displayText(std::string_view text)
{
    QString shown;
    for (const QChar character :
         QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))) {
        if (breaksLine(character)) {
            shown += ' ';
        } else if (!reordersNeighbours(character)) {
            shown += character;
        }
    }
    return shown;
}

QString plainToolTip(const QString& text)
{
    return Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal);
}

} // namespace voltmere
