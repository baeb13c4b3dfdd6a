#include "StatXMLVocabulary.h"

namespace QVXML_940 {

// --- The root ----------------------------------------------------------------------------------

const std::string StatXML_xml = "xml";
const std::string StatXML_version_1_0 = "1.0";
const std::string StatXML_xmlns = "xmlns";
const std::string StatXML_namespace =
    "http://www.qvcommon.example/software/analytics/zelv/xml/extension";
const std::string StatXML_schemaLocation =
    "http://www.qvcommon.example/software/analytics/zelv/xml/extension/StatXML_7.0.xsd";
const std::string StatXML_copyright = "Copyright (c) the owners of qvcommon940r";
const std::string StatXML_StatXML = "StatXML";

// --- The parts of a document -------------------------------------------------------------------

const std::string StatXML_PMMLModel = "PMMLModel";
const std::string StatXML_modelType = "modelType";
const std::string StatXML_modelID = "modelID";
const std::string StatXML_segmentID = "segmentID";
const std::string StatXML_BuildSettings = "BuildSettings";
const std::string StatXML_PredictiveSummary = "PredictiveSummary";
const std::string StatXML_targetField = "targetField";
const std::string StatXML_dataName = "dataName";
const std::string StatXML_dataUsage = "dataUsage";

// --- Counts ------------------------------------------------------------------------------------

const std::string StatXML_pm_Counts = "pm:Counts";
const std::string StatXML_totalFreq = "totalFreq";
const std::string StatXML_totalCount = "totalCount";
const std::string StatXML_droppedCount = "droppedCount";
const std::string StatXML_badWeightCount = "badWeightCount";
const std::string StatXML_droppedFreq = "droppedFreq";

// --- Statistics and quality --------------------------------------------------------------------

const std::string StatXML_Statistic = "Statistic";
const std::string StatXML_Counts = "Counts";
const std::string StatXML_count = "count";
const std::string StatXML_algorithmName = "algorithmName";
const std::string StatXML_predictors = "predictors";
const std::string StatXML_modelSize = "modelSize";
const std::string StatXML_accuracy = "accuracy";
const std::string StatXML_training = "training";
const std::string StatXML_testing = "testing";
const std::string StatXML_verificating = "verificating";

// --- Tests and estimates -----------------------------------------------------------------------

const std::string StatXML_ModelDiagnostics = "ModelDiagnostics";
const std::string StatXML_ModelTestStats = "ModelTestStats";
const std::string StatXML_testID = "testID";
const std::string StatXML_testType = "testType";
const std::string StatXML_III = "III";
const std::string StatXML_modelEffect = "modelEffect";
const std::string StatXML_sumOfSquares = "sumOfSquares";
const std::string StatXML_meanSquare = "meanSquare";
const std::string StatXML_FTest = "FTest";
const std::string StatXML_fStatistic = "fStatistic";
const std::string StatXML_sig = "sig";
const std::string StatXML_df1 = "df1";
const std::string StatXML_df2 = "df2";
const std::string StatXML_TrainingSummary = "TrainingSummary";
const std::string StatXML_IterationHistory = "IterationHistory";
const std::string StatXML_Iteration = "Iteration";
const std::string StatXML_iterationNumber = "iterationNumber";
const std::string StatXML_ParameterEstimates = "ParameterEstimates";
const std::string StatXML_ParameterStats = "ParameterStats";
const std::string StatXML_block = "block";
const std::string StatXML_paramIndex = "paramIndex";
const std::string StatXML_paramName = "paramName";
const std::string StatXML_paramLabel = "paramLabel";
const std::string StatXML_estimate = "estimate";
const std::string StatXML_expEstimate = "expEstimate";
const std::string StatXML_stdError = "stdError";
const std::string StatXML_confIntervalLower = "confIntervalLower";
const std::string StatXML_confIntervalUpper = "confIntervalUpper";
const std::string StatXML_tTest = "tTest";
const std::string StatXML_chiSquare = "chiSquare";
const std::string StatXML_isRedundant = "isRedundant";
const std::string StatXML_expCILower = "expCILower";
const std::string StatXML_expCIUpper = "expCIUpper";
const std::string StatXML_fixedEffectIndex = "fixedEffectIndex";
const std::string StatXML_zTest = "zTest";
const std::string StatXML_effectSize = "effectSize";
const std::string StatXML_lowerCIEffectSize = "lowerCIEffectSize";
const std::string StatXML_upperCIEffectSize = "upperCIEffectSize";
const std::string StatXML_etaSquared = "etaSquared";
const std::string StatXML_lowerCIEtaSquared = "lowerCIEtaSquared";
const std::string StatXML_upperCIEtaSquared = "upperCIEtaSquared";
const std::string StatXML_partialEtaSquared = "partialEtaSquared";
const std::string StatXML_lowerCIPartialEtaSquared = "lowerCIPartialEtaSquared";
const std::string StatXML_upperCIPartialEtaSquared = "upperCIPartialEtaSquared";

// --- Data for charts ---------------------------------------------------------------------------

const std::string StatXML_Coordinates = "Coordinates";
const std::string StatXML_statistic = "statistic";
const std::string StatXML_feature_statistic = "statistic";
const std::string StatXML_observed = "observed";
const std::string StatXML_BivariateData = "BivariateData";
const std::string StatXML_UnivariateData = "UnivariateData";
const std::string StatXML_MultivariateData = "MultivariateData";
const std::string StatXML_StructuredData = "StructuredData";
const std::string StatXML_RecordInfo = "RecordInfo";
const std::string StatXML_recordId = "recordId";
const std::string StatXML_recordLabel = "recordLabel";

// --- Messages and printable values -------------------------------------------------------------

const std::string StatXML_Message = "Message";
const std::string StatXML_warning = "warning";
const std::string StatXML_error = "error";
const std::string StatXML_BuildModelFailedErr = "BuildModelFailedErr";
const std::string StatXML_Printable = "Printable";
const std::string StatXML_PrintableList = "PrintableList";
const std::string StatXML_pattern = "pattern";
const std::string StatXML_isKey = "isKey";
const std::string StatXML_mapId = "mapId";
const std::string StatXML_true = "true";
const std::string StatXML_false = "false";
const std::string StatXML_PrintableVList = "PrintableVList";
const std::string StatXML_PrintableValue = "PrintableValue";
const std::string StatXML_storage = "storage";
const std::string StatXML_real = "real";
const std::string StatXML_string = "string";
const std::string StatXML_StringFormat = "StringFormat";
const std::string StatXML_NumberFormat = "NumberFormat";
const std::string StatXML_width = "width";
const std::string StatXML_formatType = "formatType";
const std::string StatXML_standard = "standard";
const std::string StatXML_decimalPlaces = "decimalPlaces";
const std::string StatXML_decimalSymbol = "decimalSymbol";
const std::string StatXML_groupingSymbol = "groupingSymbol";
const std::string StatXML_local = "local";
const std::string StatXML_hexadecimal = "hexadecimal";

// --- Fields, covariates and factors ------------------------------------------------------------

const std::string StatXML_FieldInfo = "FieldInfo";
const std::string StatXML_fieldName = "fieldName";
const std::string StatXML_fieldValue = "fieldValue";
const std::string StatXML_isNull = "isNull";
const std::string StatXML_Covariate = "Covariate";
const std::string StatXML_power = "power";
const std::string StatXML_Factor = "Factor";
const std::string StatXML_nest = "nest";
const std::string StatXML_RegressionParameter = "RegressionParameter";
const std::string StatXML_isIntercept = "isIntercept";
const std::string StatXML_Label = "Label";
const std::string StatXML_CoordinatesGroup = "CoordinatesGroup";
const std::string StatXML_CoordinatesGroup_MultivariateData = "MultivariateData";

// --- Matrices ----------------------------------------------------------------------------------

const std::string StatXML_RowColLabels = "RowColLabels";
const std::string StatXML_dimension = "dimension";
const std::string StatXML_row = "row";
const std::string StatXML_col = "col";
const std::string StatXML_both = "both";
const std::string StatXML_MatrixLabels = "MatrixLabels";
const std::string StatXML_SegmentInfo = "SegmentInfo";
const std::string StatXML_Indices = "Indices";
const std::string StatXML_Matrix = "Matrix";
const std::string StatXML_nbRows = "nbRows";
const std::string StatXML_nbCols = "nbCols";
const std::string StatXML_rowMajor = "rowMajor";
const std::string StatXML_symmetric = "symmetric";
const std::string StatXML_diagonal = "diagonal";
const std::string StatXML_any = "any";
const std::string StatXML_SegmentData = "SegmentData";

// --- Structured values -------------------------------------------------------------------------

const std::string StatXML_StructuredValue = "StructuredValue";
const std::string StatXML_Attribute = "Attribute";
const std::string StatXML_ListValue = "ListValue";
const std::string StatXML_Fields = "Fields";
const std::string StatXML_NestingLevels = "NestingLevels";
const std::string StatXML_StringMap = "StringMap";
const std::string StatXML_MapEntry = "MapEntry";
const std::string StatXML_name = "name";

// --- Bivariate summaries -----------------------------------------------------------------------

const std::string StatXML_DescriptiveModel = "DescriptiveModel";
const std::string StatXML_BivariateSummaries = "BivariateSummaries";
const std::string StatXML_BivariateSummarie = "BivariateSummarie";
const std::string StatXML_fieldA = "fieldA";
const std::string StatXML_fieldB = "fieldB";
const std::string StatXML_dependentField = "dependentField";
const std::string StatXML_eta = "eta";
const std::string StatXML_oneWayAnovaFTest = "oneWayAnovaFTest";
const std::string StatXML_conditionalMean = "conditionalMean";
const std::string StatXML_binnedScatterPlot = "binnedScatterPlot";
const std::string StatXML_statisticWithinEachCategory = "statisticWithinEachCategory";
const std::string StatXML_variance = "variance";
const std::string StatXML_pearsonsR = "pearsonsR";
const std::string StatXML_totalPairs = "totalPairs";
const std::string StatXML_covariance = "covariance";
const std::string StatXML_cramersV = "cramersV";
const std::string StatXML_spearmanCorrelationh = "spearmanCorrelationh";
const std::string StatXML_pearsonChiSquare = "pearsonChiSquare";
const std::string StatXML_theoreticalFrequencies = "theoreticalFrequencies";
const std::string StatXML_ChiTest = "ChiTest";
const std::string StatXML_Crosstabulation = "Crosstabulation";
const std::string StatXML_frequency = "frequency";

}  // namespace QVXML_940
