#include "app/AppHelper.h"
#include "exchange/ArchiveWork.h"
#include "exchange/QDPXExporter.h"
#include "project/KRNFile.h"

Progress AppHelper::beginExchange() {
    m_exchangeCancelled = false;
    m_exchangeProgress = 0;
    emit exchangeProgressed();
    return [this](qint64 done, qint64 of) {
        const int percent = of > 0 ? static_cast<int>(done * 100 / of) : 0;
        QMetaObject::invokeMethod(this, [this, percent] {
            if (percent == m_exchangeProgress)
                return;
            m_exchangeProgress = percent;
            emit exchangeProgressed();
        });
        return !m_exchangeCancelled;
    };
}

QVariantMap AppHelper::importQDPX(const QString& inputFile, const QJsonObject& resultProj,
                                  const QString& author, int canvasWidth, int canvasHeight,
                                  const QString& password) {
    const QDPXImportOptions options{author, canvasWidth, canvasHeight};
    return archive::import(*m_krnFile->dataHelper(), inputFile, resultProj, options, password,
                           beginExchange())
        .toVariantMap();
}

bool AppHelper::exportQDPX(const QString& outputFile, bool toTheLetter) {
    const ExchangeForm form = toTheLetter ? ExchangeForm::Standard : ExchangeForm::Own;
    return archive::exportOpen(*m_krnFile, withArchiveSuffix(outputFile), form, beginExchange());
}

QString AppHelper::withArchiveSuffix(const QString& path) const {
    return QDPXExporter::withSuffix(path);
}
