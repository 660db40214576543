#pragma once

#include "export/ReportData.h"

#include <functional>

/// The quotes of a report in the orders in which it shows them: the elements of its text variables, handed on
/// one by one.
namespace reporttexts {

using Sink = std::function<void(const QJsonObject& element)>;

void byCode(const ReportData& data, const Sink& sink);
void bySource(const ReportData& data, const Sink& sink);
void byQuestion(const ReportData& data, const Sink& sink);
/// How often and how far each kerno was coded, altogether and by source.
void codeSummary(const ReportData& data, const Sink& sink);
void memosBySource(const ReportData& data, const Sink& sink);

}  // namespace reporttexts
