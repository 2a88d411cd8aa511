#include "grid/text_fold.h"

namespace sbd {

QString FoldedText(const QString& text)
{
    return text.normalized(QString::NormalizationForm_KC).toCaseFolded();
}

QStringList WordsThatFit(const QStringList& words, const QString& text)
{
    const QString wanted = FoldedText(text);
    if (wanted.isEmpty())
        return {};
    QStringList begin;
    QStringList hold;
    for (const QString& word : words) {
        const qsizetype place = FoldedText(word).indexOf(wanted);
        if (place == 0)
            begin << word;
        else if (place > 0)
            hold << word;
    }
    return begin + hold;
}

} // namespace sbd
