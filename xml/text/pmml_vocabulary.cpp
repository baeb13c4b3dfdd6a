#include "PMMLVocabulary.h"

namespace QVXML_940 {

// --- The root and its versions, namespaces and schema locations --------------------------------

const std::string PMML_PMML = "PMML";
const std::string PMML_version = "version";
const std::string PMML_version_3_2 = "3.2";
const std::string PMML_version_4_0 = "4.0";
const std::string PMML_version_4_1 = "4.1";
const std::string PMML_version_4_3 = "4.3";
const std::string PMML_xmlns = "xmlns";
const std::string PMML_namespace_3_2 = "http://www.dmg.org/PMML-3_2";
const std::string PMML_namespace_4_0 = "http://www.dmg.org/PMML-4_0";
const std::string PMML_namespace_4_1 = "http://www.dmg.org/PMML-4_1";
const std::string PMML_namespace_4_3 = "http://www.dmg.org/PMML-4_3";
const std::string PMML_xmlns_xsi = "xmlns:xsi";
const std::string PMML_namespace_xsi = "http://www.w3.org/2001/XMLSchema-instance";
const std::string PMML_xsi_schemaLocation = "xsi:schemaLocation";
const std::string PMML_schemaLocation_3_2 = "http://www.dmg.org/PMML-3_2 pmml-3-2.xsd";
const std::string PMML_schemaLocation_4_0 = "http://www.dmg.org/PMML-4_0 pmml-4-0.xsd";
const std::string PMML_schemaLocation_4_1 = "http://www.dmg.org/PMML-4_1 pmml-4-1.xsd";
const std::string PMML_schemaLocation_4_3 = "http://www.dmg.org/PMML-4_3 pmml-4-3.xsd";

// --- The header --------------------------------------------------------------------------------

const std::string PMML_Header = "Header";
const std::string PMML_copyright = "copyright";
const std::string PMML_productCopyright = "Copyright (c) the owners of qvcommon940r";
const std::string PMML_description = "description";
const std::string PMML_Application = "Application";
const std::string PMML_Annotation = "Annotation";
const std::string PMML_name = "name";
const std::string PMML_Timestamp = "Timestamp";

// --- The data dictionary -----------------------------------------------------------------------

const std::string PMML_MiningBuildTask = "MiningBuildTask";
const std::string PMML_DataDictionary = "DataDictionary";
const std::string PMML_numberOfFields = "numberOfFields";
const std::string PMML_DataField = "DataField";
const std::string PMML_displayName = "displayName";
const std::string PMML_optype = "optype";
const std::string PMML_categorical = "categorical";
const std::string PMML_continuous = "continuous";
const std::string PMML_ordinal = "ordinal";
const std::string PMML_Value = "Value";
const std::string PMML_value = "value";
const std::string PMML_displayValue = "displayValue";
const std::string PMML_dataType = "dataType";
const std::string PMML_string = "string";
const std::string PMML_float = "float";
const std::string PMML_double = "double";
const std::string PMML_integer = "integer";
const std::string PMML_date = "date";
const std::string PMML_time = "time";
const std::string PMML_dateTime = "dateTime";
const std::string PMML_dateDaysSince_1970 = "dateDaysSince[1970]";
const std::string PMML_timeSeconds = "timeSeconds";
const std::string PMML_dateTimeSecondsSince_1970 = "dateTimeSecondsSince[1970]";
const std::string PMML_property = "property";
const std::string PMML_missing = "missing";
const std::string PMML_valid = "valid";
const std::string PMML_invalid = "invalid";
const std::string PMML_x_storageType = "x-storageType";
const std::string PMML_measure = "measure";
const std::string PMML_x_measure = "x-measure";

// --- Extensions --------------------------------------------------------------------------------

const std::string PMML_Extension = "Extension";
const std::string PMML_extender = "extender";
const std::string PMML_vendor = "qvcommon.example";
const std::string PMML_missingInterval = "missingInterval";
const std::string PMML_invalidRangeLower = "invalidRangeLower";
const std::string PMML_invalidRangeUpper = "invalidRangeUpper";
const std::string PMML_flagTypeTrueValue = "flagTypeTrueValue";
const std::string PMML_noSpaceTrim = "noSpaceTrim";
const std::string PMML_true = "true";

// --- Model quality -----------------------------------------------------------------------------

const std::string PMML_r_squared = "r-squared";
const std::string PMML_adj_r_squared = "adj-r-squared";
const std::string PMML_sumSquaredError = "sumSquaredError";
const std::string PMML_meanAbsoluteError = "meanAbsoluteError";
const std::string PMML_sumSquaredRegression = "sumSquaredRegression";
const std::string PMML_numOfRecords = "numOfRecords";
const std::string PMML_numOfRecordsWeighted = "numOfRecordsWeighted";
const std::string PMML_numOfPredictors = "numOfPredictors";
const std::string PMML_fStatistic = "fStatistic";
const std::string PMML_AIC = "AIC";
const std::string PMML_BIC = "BIC";
const std::string PMML_AICc = "AICc";
const std::string PMML_ConfusionMatrix = "ConfusionMatrix";
const std::string PMML_ClassLabels = "ClassLabels";
const std::string PMML_ModelExplanation = "ModelExplanation";
const std::string PMML_PredictiveModelQuality = "PredictiveModelQuality";
const std::string PMML_targetField = "targetField";
const std::string PMML_LiftData = "LiftData";
const std::string PMML_ModelLiftGraph = "ModelLiftGraph";
const std::string PMML_LiftGraph = "LiftGraph";
const std::string PMML_XCoordinates = "XCoordinates";
const std::string PMML_YCoordinates = "YCoordinates";
const std::string PMML_BoundaryValues = "BoundaryValues";
const std::string PMML_BoundaryValueMeans = "BoundaryValueMeans";
const std::string PMML_targetFieldValue = "targetFieldValue";
const std::string PMML_targetFieldDisplayValue = "targetFieldDisplayValue";

// --- Transformations ---------------------------------------------------------------------------

const std::string PMML_TransformationDictionary = "TransformationDictionary";
const std::string PMML_LocalTransformations = "LocalTransformations";
const std::string PMML_NormContinuous = "NormContinuous";
const std::string PMML_NormDiscrete = "NormDiscrete";
const std::string PMML_MapValues = "MapValues";
const std::string PMML_LinearNorm = "LinearNorm";
const std::string PMML_orig = "orig";
const std::string PMML_norm = "norm";
const std::string PMML_Apply = "Apply";
const std::string PMML_function = "function";
const std::string PMML_DerivedField = "DerivedField";
const std::string PMML_DerivedFields = "DerivedFields";
const std::string PMML_FieldRef = "FieldRef";
const std::string PMML_field = "field";
const std::string PMML_Discretize = "Discretize";
const std::string PMML_DiscretizeBin = "DiscretizeBin";
const std::string PMML_binValue = "binValue";
const std::string PMML_Interval = "Interval";
const std::string PMML_closure = "closure";
const std::string PMML_openOpen = "openOpen";
const std::string PMML_openClosed = "openClosed";
const std::string PMML_closedOpen = "closedOpen";
const std::string PMML_closedClosed = "closedClosed";
const std::string PMML_leftMargin = "leftMargin";
const std::string PMML_rightMargin = "rightMargin";

// --- Kinds of models ---------------------------------------------------------------------------

const std::string PMML_AssociationModel = "AssociationModel";
const std::string PMML_ClusteringModel = "ClusteringModel";
const std::string PMML_GeneralRegressionModel = "GeneralRegressionModel";
const std::string PMML_MiningModel = "MiningModel";
const std::string PMML_NaiveBayesModel = "NaiveBayesModel";
const std::string PMML_NeuralNetwork = "NeuralNetwork";
const std::string PMML_RegressionModel = "RegressionModel";
const std::string PMML_RuleSetModel = "RuleSetModel";
const std::string PMML_SequenceModel = "SequenceModel";
const std::string PMML_SupportVectorMachineModel = "SupportVectorMachineModel";
const std::string PMML_TextModel = "TextModel";
const std::string PMML_TimeSeriesModel = "TimeSeriesModel";
const std::string PMML_TreeModel = "TreeModel";
const std::string PMML_BayesNetModel = "BayesNetModel";
const std::string PMML_NearestNeighborModel = "NearestNeighborModel";

// --- Segmentation ------------------------------------------------------------------------------

const std::string PMML_Segmentation = "Segmentation";
const std::string PMML_Segment = "Segment";
const std::string PMML_id = "id";
const std::string PMML_multipleModelMethod = "multipleModelMethod";
const std::string PMML_majorityVote = "majorityVote";
const std::string PMML_weightedMajorityVote = "weightedMajorityVote";
const std::string PMML_average = "average";
const std::string PMML_weightedAverage = "weightedAverage";
const std::string PMML_median = "median";
const std::string PMML_max = "max";
const std::string PMML_sum = "sum";
const std::string PMML_selectFirst = "selectFirst";
const std::string PMML_selectAll = "selectAll";
const std::string PMML_weightedMedian = "weightedMedian";

// --- Attributes of a model ---------------------------------------------------------------------

const std::string PMML_modelID = "modelID";
const std::string PMML_activeModelID = "activeModelID";
const std::string PMML_isScorable = "isScorable";
const std::string PMML_functionName = "functionName";
const std::string PMML_classification = "classification";
const std::string PMML_regression = "regression";
const std::string PMML_modelName = "modelName";
const std::string PMML_algorithmName = "algorithmName";
const std::string PMML_fieldName = "fieldName";

// --- The mining schema -------------------------------------------------------------------------

const std::string PMML_MiningSchema = "MiningSchema";
const std::string PMML_MiningField = "MiningField";
const std::string PMML_MiningField_name = "name";
const std::string PMML_usageType = "usageType";
const std::string PMML_active = "active";
const std::string PMML_predicted = "predicted";
const std::string PMML_target = "target";
const std::string PMML_missingValueReplacement = "missingValueReplacement";
const std::string PMML_missingValueTreatment = "missingValueTreatment";
const std::string PMML_asIs = "asIs";
const std::string PMML_asValue = "asValue";
const std::string PMML_asMean = "asMean";
const std::string PMML_asMode = "asMode";
const std::string PMML_outliers = "outliers";
const std::string PMML_asMissingValues = "asMissingValues";
const std::string PMML_asExtremeValues = "asExtremeValues";
const std::string PMML_lowValue = "lowValue";
const std::string PMML_highValue = "highValue";
const std::string PMML_importance = "importance";

// --- The output of a model ---------------------------------------------------------------------

const std::string PMML_Output = "Output";
const std::string PMML_OutputField = "OutputField";
const std::string PMML_feature = "feature";
const std::string PMML_entityId = "entityId";
const std::string PMML_predictedValue = "predictedValue";
const std::string PMML_probability = "probability";
const std::string PMML_residual = "residual";
const std::string PMML_standardError = "standardError";
const std::string PMML_OutputField_targetField = "targetField";
const std::string PMML_ruleFeature = "ruleFeature";
const std::string PMML_antecedent = "antecedent";
const std::string PMML_consequent = "consequent";
const std::string PMML_rule = "rule";
const std::string PMML_ruleId = "ruleId";
const std::string PMML_confidence = "confidence";
const std::string PMML_support = "support";
const std::string PMML_lift = "lift";
const std::string PMML_algorithm = "algorithm";
const std::string PMML_recommendation = "recommendation";
const std::string PMML_exclusiveRecommendation = "exclusiveRecommendation";
const std::string PMML_ruleAssociation = "ruleAssociation";
const std::string PMML_rankBasis = "rankBasis";
const std::string PMML_rankOrder = "rankOrder";
const std::string PMML_descending = "descending";
const std::string PMML_ascending = "ascending";
const std::string PMML_isMultiValued = "isMultiValued";

// --- Statistics of a model ---------------------------------------------------------------------

const std::string PMML_ModelStats = "ModelStats";
const std::string PMML_Anova = "Anova";
const std::string PMML_AnovaRow = "AnovaRow";
const std::string PMML_sumOfSquares = "sumOfSquares";
const std::string PMML_degreesOfFreedom = "degreesOfFreedom";
const std::string PMML_meanOfSquares = "meanOfSquares";
const std::string PMML_fValue = "fValue";
const std::string PMML_pValue = "pValue";
const std::string PMML_UnivariateStats = "UnivariateStats";
const std::string PMML_Array = "Array";
const std::string PMML_n = "n";
const std::string PMML_type = "type";
const std::string PMML_real = "real";
const std::string PMML_int = "int";
const std::string PMML_Matrix = "Matrix";
const std::string PMML_kind = "kind";
const std::string PMML_diagonal = "diagonal";
const std::string PMML_Covariances = "Covariances";
const std::string PMML_Partition = "Partition";
const std::string PMML_PartitionFieldStats = "PartitionFieldStats";
const std::string PMML_N = "N";
const std::string PMML_Counts = "Counts";
const std::string PMML_totalFreq = "totalFreq";
const std::string PMML_invalidFreq = "invalidFreq";
const std::string PMML_missingFreq = "missingFreq";
const std::string PMML_cardinality = "cardinality";
const std::string PMML_DiscrStats = "DiscrStats";
const std::string PMML_NumericInfo = "NumericInfo";
const std::string PMML_minimum = "minimum";
const std::string PMML_maximum = "maximum";
const std::string PMML_mean = "mean";
const std::string PMML_standardDeviation = "standardDeviation";
const std::string PMML_NumericInfo_median = "median";
const std::string PMML_ContStats = "ContStats";
const std::string PMML_MultivariateStats = "MultivariateStats";
const std::string PMML_MultivariateStat = "MultivariateStat";
const std::string PMML_isIntercept = "isIntercept";
const std::string PMML_stdError = "stdError";
const std::string PMML_tValue = "tValue";
const std::string PMML_dF = "dF";
const std::string PMML_pValueFinal = "pValueFinal";
const std::string PMML_confidenceLowerBound = "confidenceLowerBound";
const std::string PMML_confidenceUpperBound = "confidenceUpperBound";

// --- General regression ------------------------------------------------------------------------

const std::string PMML_containerModel = "containerModel";
const std::string PMML_ParameterList = "ParameterList";
const std::string PMML_Parameter = "Parameter";
const std::string PMML_label = "label";
const std::string PMML_FactorList = "FactorList";
const std::string PMML_Predictor = "Predictor";
const std::string PMML_CovariateList = "CovariateList";
const std::string PMML_PPMatrix = "PPMatrix";
const std::string PMML_PPCell = "PPCell";
const std::string PMML_predictorName = "predictorName";
const std::string PMML_parameterName = "parameterName";
const std::string PMML_targetCategory = "targetCategory";
const std::string PMML_PCovMatrix = "PCovMatrix";
const std::string PMML_model = "model";
const std::string PMML_robust = "robust";
const std::string PMML_modelDF = "modelDF";
const std::string PMML_targetReferenceCategory = "targetReferenceCategory";
const std::string PMML_modelType = "modelType";
const std::string PMML_generalLinear = "generalLinear";
const std::string PMML_multinomialLogistic = "multinomialLogistic";
const std::string PMML_ordinalMultinomial = "ordinalMultinomial";
const std::string PMML_generalizedLinear = "generalizedLinear";
const std::string PMML_CoxRegression = "CoxRegression";
const std::string PMML_PCovCell = "PCovCell";
const std::string PMML_tRow = "tRow";
const std::string PMML_tCol = "tCol";
const std::string PMML_pRow = "pRow";
const std::string PMML_pCol = "pCol";
const std::string PMML_ParamMatrix = "ParamMatrix";
const std::string PMML_PCell = "PCell";
const std::string PMML_beta = "beta";
const std::string PMML_df = "df";

// --- Neural networks ---------------------------------------------------------------------------

const std::string PMML_activationFunction = "activationFunction";
const std::string PMML_radialBasis = "radialBasis";
const std::string PMML_clustering = "clustering";
const std::string PMML_NeuralInputs = "NeuralInputs";
const std::string PMML_NeuralInput = "NeuralInput";
const std::string PMML_NeuralLayer = "NeuralLayer";
const std::string PMML_numberOfNeurons = "numberOfNeurons";
const std::string PMML_normalizationMethod = "normalizationMethod";
const std::string PMML_simplemax = "simplemax";
const std::string PMML_softmax = "softmax";
const std::string PMML_Neuron = "Neuron";
const std::string PMML_width = "width";
const std::string PMML_bias = "bias";
const std::string PMML_tanh = "tanh";
const std::string PMML_identity = "identity";
const std::string PMML_numberOfLayers = "numberOfLayers";
const std::string PMML_logistic = "logistic";
const std::string PMML_Con = "Con";
const std::string PMML_weight = "weight";
const std::string PMML_NeuralOutputs = "NeuralOutputs";
const std::string PMML_NeuralOutput = "NeuralOutput";
const std::string PMML_outputNeuron = "outputNeuron";
const std::string PMML_x_kohonenXDimension = "x-kohonenXDimension";
const std::string PMML_x_kohonenYDimension = "x-kohonenYDimension";
const std::string PMML_kohonenXDimension = "kohonenXDimension";
const std::string PMML_kohonenYDimension = "kohonenYDimension";
const std::string PMML_threshold = "threshold";
const std::string PMML_activation_threshold = "threshold";
const std::string PMML_exponential = "exponential";
const std::string PMML_reciprocal = "reciprocal";
const std::string PMML_square = "square";
const std::string PMML_Gauss = "Gauss";
const std::string PMML_sine = "sine";
const std::string PMML_cosine = "cosine";
const std::string PMML_Elliott = "Elliott";
const std::string PMML_arctan = "arctan";
const std::string PMML_rectifier = "rectifier";
const std::string PMML_from = "from";
const std::string PMML_mapMissingTo = "mapMissingTo";

// --- Tables ------------------------------------------------------------------------------------

const std::string PMML_FieldColumnPair = "FieldColumnPair";
const std::string PMML_defaultValue = "defaultValue";
const std::string PMML_InlineTable = "InlineTable";
const std::string PMML_row = "row";
const std::string PMML_in = "in";
const std::string PMML_out = "out";

// --- Predicates --------------------------------------------------------------------------------

const std::string PMML_SimplePredicate = "SimplePredicate";
const std::string PMML_CompoundPredicate = "CompoundPredicate";
const std::string PMML_SimpleSetPredicate = "SimpleSetPredicate";
const std::string PMML_True = "True";
const std::string PMML_False = "False";
const std::string PMML_booleanOperator = "booleanOperator";
const std::string PMML_or = "or";
const std::string PMML_and = "and";
const std::string PMML_xor = "xor";
const std::string PMML_surrogate = "surrogate";
const std::string PMML_operator = "operator";
const std::string PMML_isMissing = "isMissing";
const std::string PMML_isNotMissing = "isNotMissing";
const std::string PMML_equal = "equal";
const std::string PMML_notEqual = "notEqual";
const std::string PMML_lessThan = "lessThan";
const std::string PMML_lessOrEqual = "lessOrEqual";
const std::string PMML_greaterThan = "greaterThan";
const std::string PMML_greaterOrEqual = "greaterOrEqual";
const std::string PMML_letter_n = "n";

}  // namespace QVXML_940
