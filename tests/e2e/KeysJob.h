#pragma once

#include "Job.h"

/// The whole coding job without a mouse: chooses a source, selects words, codes them in every way that the
/// keys offer, writes a memo, makes a kerno, and goes back.
class KeysJob : public Job {
public:
    using Job::Job;

    bool play(const QString& run) override;

private:
    bool chooseSource();
    bool codeIntoNew();
    bool codeWithList();
    bool bindKey();
    bool removeCodings();
    bool writeMemo();
    bool changeMemo(int id);
    bool makeKerno();
    bool goOverCanvas();
    bool editInBar();
    bool nestInTree();

    /// Goes to the next part until the item of that name, or of that text, has the keyboard.
    bool goTo(const QString& nameOrText);
    bool hasFocus(const QString& nameOrText);
    /// From the beginning of the text, skips some words and selects some.
    bool selectWords(int skipped, int count, const QString& expected);
    bool untilCodings(const QString& kerno, int count);
    /// From the text by Tab.
    bool tabTo(const QString& name, int times);
    /// Opens the menu of what has the keyboard, and takes its first entry.
    void takeFirstOfMenu();
};
