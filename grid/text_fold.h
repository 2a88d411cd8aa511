// Texts compared as people read them.
#pragma once

#include <QStringList>

namespace sbd {

/// A text for comparing: full and half width, capital and small letters are alike ("ｶﾅ" is "カナ", "ＳＭ" is "sm").
[[nodiscard]] QString FoldedText(const QString& text);

/// The words that hold `text`, folded: those that begin with it first, each group in its order. None for an empty text.
[[nodiscard]] QStringList WordsThatFit(const QStringList& words, const QString& text);

} // namespace sbd
