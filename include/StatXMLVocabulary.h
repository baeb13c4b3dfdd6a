/// The words of StatXML: element names, attribute names and enumerated values.
///
///     XMLElement * counts = XMLElement::Create(StatXML_Counts);
///     counts->AddAttribute(StatXML_totalFreq, 150.0);
///
/// Words that StatXML shares with PMML ("version", "xmlns:xsi", "description") are constants of
/// PMMLVocabulary.h. A text that stands in the list twice has a constant for each use.
///
/// A constant is named for its text: the prefix, then the text, with an underscore for whatever a
/// name cannot hold. Where the name does not spell its text, the text stands behind it or above.
///
/// Thread-safe: the strings are built when the library is loaded and never change.
#pragma once

#include <string>

#include "QVExport.h"

namespace QVXML_940 {

// --- The root ----------------------------------------------------------------------------------

QVCOMMON_API extern const std::string StatXML_xml;
QVCOMMON_API extern const std::string StatXML_version_1_0;  // "1.0"
QVCOMMON_API extern const std::string StatXML_xmlns;
// "http://www.qvcommon.example/software/analytics/zelv/xml/extension"
QVCOMMON_API extern const std::string StatXML_namespace;
// "http://www.qvcommon.example/software/analytics/zelv/xml/extension/StatXML_7.0.xsd"
QVCOMMON_API extern const std::string StatXML_schemaLocation;
// "Copyright (c) the owners of qvcommon940r"
QVCOMMON_API extern const std::string StatXML_copyright;
QVCOMMON_API extern const std::string StatXML_StatXML;

// --- The parts of a document -------------------------------------------------------------------

QVCOMMON_API extern const std::string StatXML_PMMLModel;
QVCOMMON_API extern const std::string StatXML_modelType;
QVCOMMON_API extern const std::string StatXML_modelID;
QVCOMMON_API extern const std::string StatXML_segmentID;
QVCOMMON_API extern const std::string StatXML_BuildSettings;
QVCOMMON_API extern const std::string StatXML_PredictiveSummary;
QVCOMMON_API extern const std::string StatXML_targetField;
QVCOMMON_API extern const std::string StatXML_dataName;
QVCOMMON_API extern const std::string StatXML_dataUsage;

// --- Counts ------------------------------------------------------------------------------------

QVCOMMON_API extern const std::string StatXML_pm_Counts;  // "pm:Counts"
QVCOMMON_API extern const std::string StatXML_totalFreq;
QVCOMMON_API extern const std::string StatXML_totalCount;
QVCOMMON_API extern const std::string StatXML_droppedCount;
QVCOMMON_API extern const std::string StatXML_badWeightCount;
QVCOMMON_API extern const std::string StatXML_droppedFreq;

// --- Statistics and quality --------------------------------------------------------------------

QVCOMMON_API extern const std::string StatXML_Statistic;
QVCOMMON_API extern const std::string StatXML_Counts;
QVCOMMON_API extern const std::string StatXML_count;
QVCOMMON_API extern const std::string StatXML_algorithmName;
QVCOMMON_API extern const std::string StatXML_predictors;
QVCOMMON_API extern const std::string StatXML_modelSize;
QVCOMMON_API extern const std::string StatXML_accuracy;
QVCOMMON_API extern const std::string StatXML_training;
QVCOMMON_API extern const std::string StatXML_testing;
QVCOMMON_API extern const std::string StatXML_verificating;

// --- Tests and estimates -----------------------------------------------------------------------

QVCOMMON_API extern const std::string StatXML_ModelDiagnostics;
QVCOMMON_API extern const std::string StatXML_ModelTestStats;
QVCOMMON_API extern const std::string StatXML_testID;
QVCOMMON_API extern const std::string StatXML_testType;
QVCOMMON_API extern const std::string StatXML_III;
QVCOMMON_API extern const std::string StatXML_modelEffect;
QVCOMMON_API extern const std::string StatXML_sumOfSquares;
QVCOMMON_API extern const std::string StatXML_meanSquare;
QVCOMMON_API extern const std::string StatXML_FTest;
QVCOMMON_API extern const std::string StatXML_fStatistic;
QVCOMMON_API extern const std::string StatXML_sig;
QVCOMMON_API extern const std::string StatXML_df1;
QVCOMMON_API extern const std::string StatXML_df2;
QVCOMMON_API extern const std::string StatXML_TrainingSummary;
QVCOMMON_API extern const std::string StatXML_IterationHistory;
QVCOMMON_API extern const std::string StatXML_Iteration;
QVCOMMON_API extern const std::string StatXML_iterationNumber;
QVCOMMON_API extern const std::string StatXML_ParameterEstimates;
QVCOMMON_API extern const std::string StatXML_ParameterStats;
QVCOMMON_API extern const std::string StatXML_block;
QVCOMMON_API extern const std::string StatXML_paramIndex;
QVCOMMON_API extern const std::string StatXML_paramName;
QVCOMMON_API extern const std::string StatXML_paramLabel;
QVCOMMON_API extern const std::string StatXML_estimate;
QVCOMMON_API extern const std::string StatXML_expEstimate;
QVCOMMON_API extern const std::string StatXML_stdError;
QVCOMMON_API extern const std::string StatXML_confIntervalLower;
QVCOMMON_API extern const std::string StatXML_confIntervalUpper;
QVCOMMON_API extern const std::string StatXML_tTest;
QVCOMMON_API extern const std::string StatXML_chiSquare;
QVCOMMON_API extern const std::string StatXML_isRedundant;
QVCOMMON_API extern const std::string StatXML_expCILower;
QVCOMMON_API extern const std::string StatXML_expCIUpper;
QVCOMMON_API extern const std::string StatXML_fixedEffectIndex;
QVCOMMON_API extern const std::string StatXML_zTest;
QVCOMMON_API extern const std::string StatXML_effectSize;
QVCOMMON_API extern const std::string StatXML_lowerCIEffectSize;
QVCOMMON_API extern const std::string StatXML_upperCIEffectSize;
QVCOMMON_API extern const std::string StatXML_etaSquared;
QVCOMMON_API extern const std::string StatXML_lowerCIEtaSquared;
QVCOMMON_API extern const std::string StatXML_upperCIEtaSquared;
QVCOMMON_API extern const std::string StatXML_partialEtaSquared;
QVCOMMON_API extern const std::string StatXML_lowerCIPartialEtaSquared;
QVCOMMON_API extern const std::string StatXML_upperCIPartialEtaSquared;

// --- Data for charts ---------------------------------------------------------------------------

QVCOMMON_API extern const std::string StatXML_Coordinates;
QVCOMMON_API extern const std::string StatXML_statistic;
QVCOMMON_API extern const std::string StatXML_feature_statistic;  // "statistic"
QVCOMMON_API extern const std::string StatXML_observed;
QVCOMMON_API extern const std::string StatXML_BivariateData;
QVCOMMON_API extern const std::string StatXML_UnivariateData;
QVCOMMON_API extern const std::string StatXML_MultivariateData;
QVCOMMON_API extern const std::string StatXML_StructuredData;
QVCOMMON_API extern const std::string StatXML_RecordInfo;
QVCOMMON_API extern const std::string StatXML_recordId;
QVCOMMON_API extern const std::string StatXML_recordLabel;

// --- Messages and printable values -------------------------------------------------------------

QVCOMMON_API extern const std::string StatXML_Message;
QVCOMMON_API extern const std::string StatXML_warning;
QVCOMMON_API extern const std::string StatXML_error;
QVCOMMON_API extern const std::string StatXML_BuildModelFailedErr;
QVCOMMON_API extern const std::string StatXML_Printable;
QVCOMMON_API extern const std::string StatXML_PrintableList;
QVCOMMON_API extern const std::string StatXML_pattern;
QVCOMMON_API extern const std::string StatXML_isKey;
QVCOMMON_API extern const std::string StatXML_mapId;
QVCOMMON_API extern const std::string StatXML_true;
QVCOMMON_API extern const std::string StatXML_false;
QVCOMMON_API extern const std::string StatXML_PrintableVList;
QVCOMMON_API extern const std::string StatXML_PrintableValue;
QVCOMMON_API extern const std::string StatXML_storage;
QVCOMMON_API extern const std::string StatXML_real;
QVCOMMON_API extern const std::string StatXML_string;
QVCOMMON_API extern const std::string StatXML_StringFormat;
QVCOMMON_API extern const std::string StatXML_NumberFormat;
QVCOMMON_API extern const std::string StatXML_width;
QVCOMMON_API extern const std::string StatXML_formatType;
QVCOMMON_API extern const std::string StatXML_standard;
QVCOMMON_API extern const std::string StatXML_decimalPlaces;
QVCOMMON_API extern const std::string StatXML_decimalSymbol;
QVCOMMON_API extern const std::string StatXML_groupingSymbol;
QVCOMMON_API extern const std::string StatXML_local;
QVCOMMON_API extern const std::string StatXML_hexadecimal;

// --- Fields, covariates and factors ------------------------------------------------------------

QVCOMMON_API extern const std::string StatXML_FieldInfo;
QVCOMMON_API extern const std::string StatXML_fieldName;
QVCOMMON_API extern const std::string StatXML_fieldValue;
QVCOMMON_API extern const std::string StatXML_isNull;
QVCOMMON_API extern const std::string StatXML_Covariate;
QVCOMMON_API extern const std::string StatXML_power;
QVCOMMON_API extern const std::string StatXML_Factor;
QVCOMMON_API extern const std::string StatXML_nest;
QVCOMMON_API extern const std::string StatXML_RegressionParameter;
QVCOMMON_API extern const std::string StatXML_isIntercept;
QVCOMMON_API extern const std::string StatXML_Label;
QVCOMMON_API extern const std::string StatXML_CoordinatesGroup;
// "MultivariateData"
QVCOMMON_API extern const std::string StatXML_CoordinatesGroup_MultivariateData;

// --- Matrices ----------------------------------------------------------------------------------

QVCOMMON_API extern const std::string StatXML_RowColLabels;
QVCOMMON_API extern const std::string StatXML_dimension;
QVCOMMON_API extern const std::string StatXML_row;
QVCOMMON_API extern const std::string StatXML_col;
QVCOMMON_API extern const std::string StatXML_both;
QVCOMMON_API extern const std::string StatXML_MatrixLabels;
QVCOMMON_API extern const std::string StatXML_SegmentInfo;
QVCOMMON_API extern const std::string StatXML_Indices;
QVCOMMON_API extern const std::string StatXML_Matrix;
QVCOMMON_API extern const std::string StatXML_nbRows;
QVCOMMON_API extern const std::string StatXML_nbCols;
QVCOMMON_API extern const std::string StatXML_rowMajor;
QVCOMMON_API extern const std::string StatXML_symmetric;
QVCOMMON_API extern const std::string StatXML_diagonal;
QVCOMMON_API extern const std::string StatXML_any;
QVCOMMON_API extern const std::string StatXML_SegmentData;

// --- Structured values -------------------------------------------------------------------------

QVCOMMON_API extern const std::string StatXML_StructuredValue;
QVCOMMON_API extern const std::string StatXML_Attribute;
QVCOMMON_API extern const std::string StatXML_ListValue;
QVCOMMON_API extern const std::string StatXML_Fields;
QVCOMMON_API extern const std::string StatXML_NestingLevels;
QVCOMMON_API extern const std::string StatXML_StringMap;
QVCOMMON_API extern const std::string StatXML_MapEntry;
QVCOMMON_API extern const std::string StatXML_name;

// --- Bivariate summaries -----------------------------------------------------------------------

QVCOMMON_API extern const std::string StatXML_DescriptiveModel;
QVCOMMON_API extern const std::string StatXML_BivariateSummaries;
QVCOMMON_API extern const std::string StatXML_BivariateSummarie;
QVCOMMON_API extern const std::string StatXML_fieldA;
QVCOMMON_API extern const std::string StatXML_fieldB;
QVCOMMON_API extern const std::string StatXML_dependentField;
QVCOMMON_API extern const std::string StatXML_eta;
QVCOMMON_API extern const std::string StatXML_oneWayAnovaFTest;
QVCOMMON_API extern const std::string StatXML_conditionalMean;
QVCOMMON_API extern const std::string StatXML_binnedScatterPlot;
QVCOMMON_API extern const std::string StatXML_statisticWithinEachCategory;
QVCOMMON_API extern const std::string StatXML_variance;
QVCOMMON_API extern const std::string StatXML_pearsonsR;
QVCOMMON_API extern const std::string StatXML_totalPairs;
QVCOMMON_API extern const std::string StatXML_covariance;
QVCOMMON_API extern const std::string StatXML_cramersV;
QVCOMMON_API extern const std::string StatXML_spearmanCorrelationh;
QVCOMMON_API extern const std::string StatXML_pearsonChiSquare;
QVCOMMON_API extern const std::string StatXML_theoreticalFrequencies;
QVCOMMON_API extern const std::string StatXML_ChiTest;
QVCOMMON_API extern const std::string StatXML_Crosstabulation;
QVCOMMON_API extern const std::string StatXML_frequency;

}  // namespace QVXML_940
