#include "project/KRNFile.h"

#include "models/QuestionAnswerMainModel.h"

#include <QEventLoop>

// The texts of an opened project arrive one after another while the screens are already in use.

int KRNFile::textsHere() const {
    return answerModel() ? answerModel()->textsHere() : 0;
}

int KRNFile::textsExpected() const {
    return answerModel() ? answerModel()->textsExpected() : 0;
}

int KRNFile::textsFailed() const {
    return answerModel() ? answerModel()->textsFailed() : 0;
}

bool KRNFile::allTextsHere() const {
    return !answerModel() || answerModel()->areTextsHere();
}

void KRNFile::connectTexts() {
    connect(answerModel(), &QuestionAnswerMainModel::textsProgressed, this, &KRNFile::textsChanged);
    connect(answerModel(), &QuestionAnswerMainModel::textsFinished, this,
            [this] { emit textWaitEnded(allTextsHere()); });
    connect(this, &KRNFile::fileClosed, this, &KRNFile::cancelTextWait);
}

void KRNFile::whenTextsAreHere(QObject* context, const std::function<void(bool)>& then) {
    if (!m_hasProject || allTextsHere()) {
        then(m_hasProject);
        return;
    }
    auto* wait = new QObject(context);
    connect(this, &KRNFile::textWaitEnded, wait, [wait, then](bool here) {
        delete wait;
        then(here);
    });
    connect(wait, &QObject::destroyed, this, [this] {
        --m_textWaits;
        emit textsChanged();
    });
    ++m_textWaits;
    emit textsChanged();
    answerModel()->retryFailedTexts();
}

bool KRNFile::waitForTexts() {
    bool ended = false;
    bool allHere = false;
    QEventLoop loop;
    whenTextsAreHere(&loop, [&](bool here) {
        ended = true;
        allHere = here;
        loop.quit();
    });
    if (!ended)
        loop.exec();
    return allHere;
}

void KRNFile::cancelTextWait() {
    emit textWaitEnded(false);
}
