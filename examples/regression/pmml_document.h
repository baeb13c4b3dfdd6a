/// The model as a PMML 4.3 document.
#pragma once

#include <memory>
#include <vector>

#include "QVQueryCancel.h"
#include "QVUniStats.h"
#include "XMLElement.h"
#include "case_reader.h"
#include "linear_model.h"

namespace regression {

/// The tree of the document: header, dictionary, and a regression model with its mining schema and
/// one table of coefficients. With `statistics` the model also tells the statistics of the fields,
/// the tests of its coefficients and its quality; null leaves them out.
///
/// Coefficients are written with all their digits, so that a reader predicts what `Predict` does.
/// Throws `Stopped`.
std::unique_ptr<QVXML_940::XMLElement> MakePmmlDocument(
    const Cases & cases, const LinearModel & model,
    const std::vector<QVXML_940::QVUniStats> * statistics, QVCommon_940::QVQueryCancel & query);

}  // namespace regression
