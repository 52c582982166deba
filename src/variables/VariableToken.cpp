#include "variables/VariableToken.h"

#include "variables/engine/VariableEngine.h"

namespace Quillstacks {

AttributedText attributedText(const QString& text) {
    return attributedText(text, variableTokenMatches(text));
}

AttributedText attributedText(const QString& text, const QList<VariableTokenMatch>& matches) {
    AttributedText result;
    qsizetype cursor = 0;
    for (const VariableTokenMatch& match : matches) {
        if (match.location > cursor)
            result.append({text.mid(cursor, match.location - cursor), {}});
        result.append({QString(QChar::ObjectReplacementCharacter),
                       VariableTokenAttachment{match.name, text.mid(match.location, match.length)}});
        cursor = match.location + match.length;
    }
    if (cursor < text.size())
        result.append({text.mid(cursor), {}});
    return result;
}

QString plainText(const AttributedText& text) {
    QString result;
    for (const AttributedRun& run : text)
        result += run.attachment ? run.attachment->originalFormat : run.characters;
    return result;
}

} // namespace Quillstacks
