#pragma once

#include <QEventLoop>
#include <QObject>
#include <QString>
#include <QTemporaryDir>
#include <functional>

/// Takes the text of a PDF file by the converter `pdftotext`, a program of its own that stands beside this
/// one in "3rd_party/pdftotext". Main thread.
class PDFTextExtractor : public QObject {
    Q_OBJECT

public:
    /// Milliseconds.
    struct Timings {
        int limit = 120000;  ///< after which a converter is ended
        int poll = 100;      ///< between questions whether the user has cancelled
    };

    explicit PDFTextExtractor(const QString& pdfPath, QObject* parent = nullptr);

    /// For tests.
    void setConverter(const QString& program, const Timings& timings);

    /// Runs the converter, with an event loop of its own so that the screens stay alive, and ends it when
    /// `cancelled` says so or its time is up. Gives the text, trimmed; empty when there is none.
    QString extract(const std::function<bool()>& cancelled = {});

signals:
    /// The converter has ended: its exit code, -1 when it was ended or crashed, -2 when it couldn't be
    /// started.
    void extracted(int exitCode, const QString& extractedText);

private:
    int convert(const std::function<bool()>& cancelled);
    QString readOutput() const;

    QString m_converter;
    QString m_inputPath;
    QString m_outputPath;
    QTemporaryDir m_folder;
    QEventLoop m_loop;
    Timings m_timings;
};
