#include "merge/SourceSimilarity.h"

#include <QDebug>
#include <algorithm>

namespace {

constexpr float hugeDifference = 0.05F;
constexpr double quiteSimilar = 0.95;

}  // namespace

Winner winnerOf(const QString& masterText, const QString& addedText) {
    if (masterText == addedText)
        return Winner::Master;
    const int shorter = std::min(masterText.size(), addedText.size());
    int differences = 0;
    for (int i = 0; i < shorter; ++i) {
        differences += masterText[i] != addedText[i];
        if (static_cast<float>(differences) / static_cast<float>(shorter) > hugeDifference)
            break;
    }
    const double ratio = differences / (shorter + 0.01);
    if (ratio > quiteSimilar) {
        qDebug() << ratio << " quite similar, choose the longer one";
        return masterText < addedText ? Winner::Added : Winner::Master;
    }
    qDebug() << ratio << " huge difference, please rename one of the files";
    return Winner::None;
}
