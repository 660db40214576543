#pragma once

#include <QString>

/// Which of two sources of one title stays, by their texts: the master's, the added one's, or both.
enum class Winner { Master, Added, None };

/// Compares by position, so that an insertion near the beginning counts as a difference in all that follows.
/// Texts that aren't equal have a winner only when they are very short.
Winner winnerOf(const QString& masterText, const QString& addedText);
