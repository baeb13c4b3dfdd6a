/// The words of a PMML document: element names, attribute names, the standard's enumerations, and
/// the extensions of this library.
///
///     XMLElement * field = XMLElement::Create(PMML_DataField);
///     field->AddAttribute(PMML_optype, PMML_continuous);
///
/// The exporters use a part of the list; the rest is there for procedures that build elements of
/// their own. A text that stands in the list twice has a constant for each use.
///
/// A constant is named for its text: the prefix, then the text, with an underscore for whatever a
/// name cannot hold. Where the name does not spell its text, the text stands behind it or above.
///
/// Thread-safe: the strings are built when the library is loaded and never change.
#pragma once

#include <string>

#include "QVExport.h"

namespace QVXML_940 {

// --- The root and its versions, namespaces and schema locations --------------------------------

QVCOMMON_API extern const std::string PMML_PMML;
QVCOMMON_API extern const std::string PMML_version;
QVCOMMON_API extern const std::string PMML_version_3_2;  // "3.2"
QVCOMMON_API extern const std::string PMML_version_4_0;  // "4.0"
QVCOMMON_API extern const std::string PMML_version_4_1;  // "4.1"
QVCOMMON_API extern const std::string PMML_version_4_3;  // "4.3"
QVCOMMON_API extern const std::string PMML_xmlns;
QVCOMMON_API extern const std::string PMML_namespace_3_2;  // "http://www.dmg.org/PMML-3_2"
QVCOMMON_API extern const std::string PMML_namespace_4_0;  // "http://www.dmg.org/PMML-4_0"
QVCOMMON_API extern const std::string PMML_namespace_4_1;  // "http://www.dmg.org/PMML-4_1"
QVCOMMON_API extern const std::string PMML_namespace_4_3;  // "http://www.dmg.org/PMML-4_3"
QVCOMMON_API extern const std::string PMML_xmlns_xsi;      // "xmlns:xsi"
// "http://www.w3.org/2001/XMLSchema-instance"
QVCOMMON_API extern const std::string PMML_namespace_xsi;
QVCOMMON_API extern const std::string PMML_xsi_schemaLocation;  // "xsi:schemaLocation"
// "http://www.dmg.org/PMML-3_2 pmml-3-2.xsd"
QVCOMMON_API extern const std::string PMML_schemaLocation_3_2;
// "http://www.dmg.org/PMML-4_0 pmml-4-0.xsd"
QVCOMMON_API extern const std::string PMML_schemaLocation_4_0;
// "http://www.dmg.org/PMML-4_1 pmml-4-1.xsd"
QVCOMMON_API extern const std::string PMML_schemaLocation_4_1;
// "http://www.dmg.org/PMML-4_3 pmml-4-3.xsd"
QVCOMMON_API extern const std::string PMML_schemaLocation_4_3;

// --- The header --------------------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_Header;
QVCOMMON_API extern const std::string PMML_copyright;
// "Copyright (c) the owners of qvcommon940r"
QVCOMMON_API extern const std::string PMML_productCopyright;
QVCOMMON_API extern const std::string PMML_description;
QVCOMMON_API extern const std::string PMML_Application;
QVCOMMON_API extern const std::string PMML_Annotation;
QVCOMMON_API extern const std::string PMML_name;
QVCOMMON_API extern const std::string PMML_Timestamp;

// --- The data dictionary -----------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_MiningBuildTask;
QVCOMMON_API extern const std::string PMML_DataDictionary;
QVCOMMON_API extern const std::string PMML_numberOfFields;
QVCOMMON_API extern const std::string PMML_DataField;
QVCOMMON_API extern const std::string PMML_displayName;
QVCOMMON_API extern const std::string PMML_optype;
QVCOMMON_API extern const std::string PMML_categorical;
QVCOMMON_API extern const std::string PMML_continuous;
QVCOMMON_API extern const std::string PMML_ordinal;
QVCOMMON_API extern const std::string PMML_Value;
QVCOMMON_API extern const std::string PMML_value;
QVCOMMON_API extern const std::string PMML_displayValue;
QVCOMMON_API extern const std::string PMML_dataType;
QVCOMMON_API extern const std::string PMML_string;
QVCOMMON_API extern const std::string PMML_float;
QVCOMMON_API extern const std::string PMML_double;
QVCOMMON_API extern const std::string PMML_integer;
QVCOMMON_API extern const std::string PMML_date;
QVCOMMON_API extern const std::string PMML_time;
QVCOMMON_API extern const std::string PMML_dateTime;
QVCOMMON_API extern const std::string PMML_dateDaysSince_1970;  // "dateDaysSince[1970]"
QVCOMMON_API extern const std::string PMML_timeSeconds;
// "dateTimeSecondsSince[1970]"
QVCOMMON_API extern const std::string PMML_dateTimeSecondsSince_1970;
QVCOMMON_API extern const std::string PMML_property;
QVCOMMON_API extern const std::string PMML_missing;
QVCOMMON_API extern const std::string PMML_valid;
QVCOMMON_API extern const std::string PMML_invalid;
QVCOMMON_API extern const std::string PMML_x_storageType;  // "x-storageType"
QVCOMMON_API extern const std::string PMML_measure;
QVCOMMON_API extern const std::string PMML_x_measure;  // "x-measure"

// --- Extensions --------------------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_Extension;
QVCOMMON_API extern const std::string PMML_extender;
QVCOMMON_API extern const std::string PMML_vendor;  // "qvcommon.example"
QVCOMMON_API extern const std::string PMML_missingInterval;
QVCOMMON_API extern const std::string PMML_invalidRangeLower;
QVCOMMON_API extern const std::string PMML_invalidRangeUpper;
QVCOMMON_API extern const std::string PMML_flagTypeTrueValue;
QVCOMMON_API extern const std::string PMML_noSpaceTrim;
QVCOMMON_API extern const std::string PMML_true;

// --- Model quality -----------------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_r_squared;      // "r-squared"
QVCOMMON_API extern const std::string PMML_adj_r_squared;  // "adj-r-squared"
QVCOMMON_API extern const std::string PMML_sumSquaredError;
QVCOMMON_API extern const std::string PMML_meanAbsoluteError;
QVCOMMON_API extern const std::string PMML_sumSquaredRegression;
QVCOMMON_API extern const std::string PMML_numOfRecords;
QVCOMMON_API extern const std::string PMML_numOfRecordsWeighted;
QVCOMMON_API extern const std::string PMML_numOfPredictors;
QVCOMMON_API extern const std::string PMML_fStatistic;
QVCOMMON_API extern const std::string PMML_AIC;
QVCOMMON_API extern const std::string PMML_BIC;
QVCOMMON_API extern const std::string PMML_AICc;
QVCOMMON_API extern const std::string PMML_ConfusionMatrix;
QVCOMMON_API extern const std::string PMML_ClassLabels;
QVCOMMON_API extern const std::string PMML_ModelExplanation;
QVCOMMON_API extern const std::string PMML_PredictiveModelQuality;
QVCOMMON_API extern const std::string PMML_targetField;
QVCOMMON_API extern const std::string PMML_LiftData;
QVCOMMON_API extern const std::string PMML_ModelLiftGraph;
QVCOMMON_API extern const std::string PMML_LiftGraph;
QVCOMMON_API extern const std::string PMML_XCoordinates;
QVCOMMON_API extern const std::string PMML_YCoordinates;
QVCOMMON_API extern const std::string PMML_BoundaryValues;
QVCOMMON_API extern const std::string PMML_BoundaryValueMeans;
QVCOMMON_API extern const std::string PMML_targetFieldValue;
QVCOMMON_API extern const std::string PMML_targetFieldDisplayValue;

// --- Transformations ---------------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_TransformationDictionary;
QVCOMMON_API extern const std::string PMML_LocalTransformations;
QVCOMMON_API extern const std::string PMML_NormContinuous;
QVCOMMON_API extern const std::string PMML_NormDiscrete;
QVCOMMON_API extern const std::string PMML_MapValues;
QVCOMMON_API extern const std::string PMML_LinearNorm;
QVCOMMON_API extern const std::string PMML_orig;
QVCOMMON_API extern const std::string PMML_norm;
QVCOMMON_API extern const std::string PMML_Apply;
QVCOMMON_API extern const std::string PMML_function;
QVCOMMON_API extern const std::string PMML_DerivedField;
QVCOMMON_API extern const std::string PMML_DerivedFields;
QVCOMMON_API extern const std::string PMML_FieldRef;
QVCOMMON_API extern const std::string PMML_field;
QVCOMMON_API extern const std::string PMML_Discretize;
QVCOMMON_API extern const std::string PMML_DiscretizeBin;
QVCOMMON_API extern const std::string PMML_binValue;
QVCOMMON_API extern const std::string PMML_Interval;
QVCOMMON_API extern const std::string PMML_closure;
QVCOMMON_API extern const std::string PMML_openOpen;
QVCOMMON_API extern const std::string PMML_openClosed;
QVCOMMON_API extern const std::string PMML_closedOpen;
QVCOMMON_API extern const std::string PMML_closedClosed;
QVCOMMON_API extern const std::string PMML_leftMargin;
QVCOMMON_API extern const std::string PMML_rightMargin;

// --- Kinds of models ---------------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_AssociationModel;
QVCOMMON_API extern const std::string PMML_ClusteringModel;
QVCOMMON_API extern const std::string PMML_GeneralRegressionModel;
QVCOMMON_API extern const std::string PMML_MiningModel;
QVCOMMON_API extern const std::string PMML_NaiveBayesModel;
QVCOMMON_API extern const std::string PMML_NeuralNetwork;
QVCOMMON_API extern const std::string PMML_RegressionModel;
QVCOMMON_API extern const std::string PMML_RuleSetModel;
QVCOMMON_API extern const std::string PMML_SequenceModel;
QVCOMMON_API extern const std::string PMML_SupportVectorMachineModel;
QVCOMMON_API extern const std::string PMML_TextModel;
QVCOMMON_API extern const std::string PMML_TimeSeriesModel;
QVCOMMON_API extern const std::string PMML_TreeModel;
QVCOMMON_API extern const std::string PMML_BayesNetModel;
QVCOMMON_API extern const std::string PMML_NearestNeighborModel;

// --- Segmentation ------------------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_Segmentation;
QVCOMMON_API extern const std::string PMML_Segment;
QVCOMMON_API extern const std::string PMML_id;
QVCOMMON_API extern const std::string PMML_multipleModelMethod;
QVCOMMON_API extern const std::string PMML_majorityVote;
QVCOMMON_API extern const std::string PMML_weightedMajorityVote;
QVCOMMON_API extern const std::string PMML_average;
QVCOMMON_API extern const std::string PMML_weightedAverage;
QVCOMMON_API extern const std::string PMML_median;
QVCOMMON_API extern const std::string PMML_max;
QVCOMMON_API extern const std::string PMML_sum;
QVCOMMON_API extern const std::string PMML_selectFirst;
QVCOMMON_API extern const std::string PMML_selectAll;
QVCOMMON_API extern const std::string PMML_weightedMedian;

// --- Attributes of a model ---------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_modelID;
QVCOMMON_API extern const std::string PMML_activeModelID;
QVCOMMON_API extern const std::string PMML_isScorable;
QVCOMMON_API extern const std::string PMML_functionName;
QVCOMMON_API extern const std::string PMML_classification;
QVCOMMON_API extern const std::string PMML_regression;
QVCOMMON_API extern const std::string PMML_modelName;
QVCOMMON_API extern const std::string PMML_algorithmName;
QVCOMMON_API extern const std::string PMML_fieldName;

// --- The mining schema -------------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_MiningSchema;
QVCOMMON_API extern const std::string PMML_MiningField;
QVCOMMON_API extern const std::string PMML_MiningField_name;  // "name"
QVCOMMON_API extern const std::string PMML_usageType;
QVCOMMON_API extern const std::string PMML_active;
QVCOMMON_API extern const std::string PMML_predicted;
QVCOMMON_API extern const std::string PMML_target;
QVCOMMON_API extern const std::string PMML_missingValueReplacement;
QVCOMMON_API extern const std::string PMML_missingValueTreatment;
QVCOMMON_API extern const std::string PMML_asIs;
QVCOMMON_API extern const std::string PMML_asValue;
QVCOMMON_API extern const std::string PMML_asMean;
QVCOMMON_API extern const std::string PMML_asMode;
QVCOMMON_API extern const std::string PMML_outliers;
QVCOMMON_API extern const std::string PMML_asMissingValues;
QVCOMMON_API extern const std::string PMML_asExtremeValues;
QVCOMMON_API extern const std::string PMML_lowValue;
QVCOMMON_API extern const std::string PMML_highValue;
QVCOMMON_API extern const std::string PMML_importance;

// --- The output of a model ---------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_Output;
QVCOMMON_API extern const std::string PMML_OutputField;
QVCOMMON_API extern const std::string PMML_feature;
QVCOMMON_API extern const std::string PMML_entityId;
QVCOMMON_API extern const std::string PMML_predictedValue;
QVCOMMON_API extern const std::string PMML_probability;
QVCOMMON_API extern const std::string PMML_residual;
QVCOMMON_API extern const std::string PMML_standardError;
QVCOMMON_API extern const std::string PMML_OutputField_targetField;  // "targetField"
QVCOMMON_API extern const std::string PMML_ruleFeature;
QVCOMMON_API extern const std::string PMML_antecedent;
QVCOMMON_API extern const std::string PMML_consequent;
QVCOMMON_API extern const std::string PMML_rule;
QVCOMMON_API extern const std::string PMML_ruleId;
QVCOMMON_API extern const std::string PMML_confidence;
QVCOMMON_API extern const std::string PMML_support;
QVCOMMON_API extern const std::string PMML_lift;
QVCOMMON_API extern const std::string PMML_algorithm;
QVCOMMON_API extern const std::string PMML_recommendation;
QVCOMMON_API extern const std::string PMML_exclusiveRecommendation;
QVCOMMON_API extern const std::string PMML_ruleAssociation;
QVCOMMON_API extern const std::string PMML_rankBasis;
QVCOMMON_API extern const std::string PMML_rankOrder;
QVCOMMON_API extern const std::string PMML_descending;
QVCOMMON_API extern const std::string PMML_ascending;
QVCOMMON_API extern const std::string PMML_isMultiValued;

// --- Statistics of a model ---------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_ModelStats;
QVCOMMON_API extern const std::string PMML_Anova;
QVCOMMON_API extern const std::string PMML_AnovaRow;
QVCOMMON_API extern const std::string PMML_sumOfSquares;
QVCOMMON_API extern const std::string PMML_degreesOfFreedom;
QVCOMMON_API extern const std::string PMML_meanOfSquares;
QVCOMMON_API extern const std::string PMML_fValue;
QVCOMMON_API extern const std::string PMML_pValue;
QVCOMMON_API extern const std::string PMML_UnivariateStats;
QVCOMMON_API extern const std::string PMML_Array;
QVCOMMON_API extern const std::string PMML_n;
QVCOMMON_API extern const std::string PMML_type;
QVCOMMON_API extern const std::string PMML_real;
QVCOMMON_API extern const std::string PMML_int;
QVCOMMON_API extern const std::string PMML_Matrix;
QVCOMMON_API extern const std::string PMML_kind;
QVCOMMON_API extern const std::string PMML_diagonal;
QVCOMMON_API extern const std::string PMML_Covariances;
QVCOMMON_API extern const std::string PMML_Partition;
QVCOMMON_API extern const std::string PMML_PartitionFieldStats;
QVCOMMON_API extern const std::string PMML_N;
QVCOMMON_API extern const std::string PMML_Counts;
QVCOMMON_API extern const std::string PMML_totalFreq;
QVCOMMON_API extern const std::string PMML_invalidFreq;
QVCOMMON_API extern const std::string PMML_missingFreq;
QVCOMMON_API extern const std::string PMML_cardinality;
QVCOMMON_API extern const std::string PMML_DiscrStats;
QVCOMMON_API extern const std::string PMML_NumericInfo;
QVCOMMON_API extern const std::string PMML_minimum;
QVCOMMON_API extern const std::string PMML_maximum;
QVCOMMON_API extern const std::string PMML_mean;
QVCOMMON_API extern const std::string PMML_standardDeviation;
QVCOMMON_API extern const std::string PMML_NumericInfo_median;  // "median"
QVCOMMON_API extern const std::string PMML_ContStats;
QVCOMMON_API extern const std::string PMML_MultivariateStats;
QVCOMMON_API extern const std::string PMML_MultivariateStat;
QVCOMMON_API extern const std::string PMML_isIntercept;
QVCOMMON_API extern const std::string PMML_stdError;
QVCOMMON_API extern const std::string PMML_tValue;
QVCOMMON_API extern const std::string PMML_dF;
QVCOMMON_API extern const std::string PMML_pValueFinal;
QVCOMMON_API extern const std::string PMML_confidenceLowerBound;
QVCOMMON_API extern const std::string PMML_confidenceUpperBound;

// --- General regression ------------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_containerModel;
QVCOMMON_API extern const std::string PMML_ParameterList;
QVCOMMON_API extern const std::string PMML_Parameter;
QVCOMMON_API extern const std::string PMML_label;
QVCOMMON_API extern const std::string PMML_FactorList;
QVCOMMON_API extern const std::string PMML_Predictor;
QVCOMMON_API extern const std::string PMML_CovariateList;
QVCOMMON_API extern const std::string PMML_PPMatrix;
QVCOMMON_API extern const std::string PMML_PPCell;
QVCOMMON_API extern const std::string PMML_predictorName;
QVCOMMON_API extern const std::string PMML_parameterName;
QVCOMMON_API extern const std::string PMML_targetCategory;
QVCOMMON_API extern const std::string PMML_PCovMatrix;
QVCOMMON_API extern const std::string PMML_model;
QVCOMMON_API extern const std::string PMML_robust;
QVCOMMON_API extern const std::string PMML_modelDF;
QVCOMMON_API extern const std::string PMML_targetReferenceCategory;
QVCOMMON_API extern const std::string PMML_modelType;
QVCOMMON_API extern const std::string PMML_generalLinear;
QVCOMMON_API extern const std::string PMML_multinomialLogistic;
QVCOMMON_API extern const std::string PMML_ordinalMultinomial;
QVCOMMON_API extern const std::string PMML_generalizedLinear;
QVCOMMON_API extern const std::string PMML_CoxRegression;
QVCOMMON_API extern const std::string PMML_PCovCell;
QVCOMMON_API extern const std::string PMML_tRow;
QVCOMMON_API extern const std::string PMML_tCol;
QVCOMMON_API extern const std::string PMML_pRow;
QVCOMMON_API extern const std::string PMML_pCol;
QVCOMMON_API extern const std::string PMML_ParamMatrix;
QVCOMMON_API extern const std::string PMML_PCell;
QVCOMMON_API extern const std::string PMML_beta;
QVCOMMON_API extern const std::string PMML_df;

// --- Neural networks ---------------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_activationFunction;
QVCOMMON_API extern const std::string PMML_radialBasis;
QVCOMMON_API extern const std::string PMML_clustering;
QVCOMMON_API extern const std::string PMML_NeuralInputs;
QVCOMMON_API extern const std::string PMML_NeuralInput;
QVCOMMON_API extern const std::string PMML_NeuralLayer;
QVCOMMON_API extern const std::string PMML_numberOfNeurons;
QVCOMMON_API extern const std::string PMML_normalizationMethod;
QVCOMMON_API extern const std::string PMML_simplemax;
QVCOMMON_API extern const std::string PMML_softmax;
QVCOMMON_API extern const std::string PMML_Neuron;
QVCOMMON_API extern const std::string PMML_width;
QVCOMMON_API extern const std::string PMML_bias;
QVCOMMON_API extern const std::string PMML_tanh;
QVCOMMON_API extern const std::string PMML_identity;
QVCOMMON_API extern const std::string PMML_numberOfLayers;
QVCOMMON_API extern const std::string PMML_logistic;
QVCOMMON_API extern const std::string PMML_Con;
QVCOMMON_API extern const std::string PMML_weight;
QVCOMMON_API extern const std::string PMML_NeuralOutputs;
QVCOMMON_API extern const std::string PMML_NeuralOutput;
QVCOMMON_API extern const std::string PMML_outputNeuron;
QVCOMMON_API extern const std::string PMML_x_kohonenXDimension;  // "x-kohonenXDimension"
QVCOMMON_API extern const std::string PMML_x_kohonenYDimension;  // "x-kohonenYDimension"
QVCOMMON_API extern const std::string PMML_kohonenXDimension;
QVCOMMON_API extern const std::string PMML_kohonenYDimension;
QVCOMMON_API extern const std::string PMML_threshold;
QVCOMMON_API extern const std::string PMML_activation_threshold;  // "threshold"
QVCOMMON_API extern const std::string PMML_exponential;
QVCOMMON_API extern const std::string PMML_reciprocal;
QVCOMMON_API extern const std::string PMML_square;
QVCOMMON_API extern const std::string PMML_Gauss;
QVCOMMON_API extern const std::string PMML_sine;
QVCOMMON_API extern const std::string PMML_cosine;
QVCOMMON_API extern const std::string PMML_Elliott;
QVCOMMON_API extern const std::string PMML_arctan;
QVCOMMON_API extern const std::string PMML_rectifier;
QVCOMMON_API extern const std::string PMML_from;
QVCOMMON_API extern const std::string PMML_mapMissingTo;

// --- Tables ------------------------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_FieldColumnPair;
QVCOMMON_API extern const std::string PMML_defaultValue;
QVCOMMON_API extern const std::string PMML_InlineTable;
QVCOMMON_API extern const std::string PMML_row;
QVCOMMON_API extern const std::string PMML_in;
QVCOMMON_API extern const std::string PMML_out;

// --- Predicates --------------------------------------------------------------------------------

QVCOMMON_API extern const std::string PMML_SimplePredicate;
QVCOMMON_API extern const std::string PMML_CompoundPredicate;
QVCOMMON_API extern const std::string PMML_SimpleSetPredicate;
QVCOMMON_API extern const std::string PMML_True;
QVCOMMON_API extern const std::string PMML_False;
QVCOMMON_API extern const std::string PMML_booleanOperator;
QVCOMMON_API extern const std::string PMML_or;
QVCOMMON_API extern const std::string PMML_and;
QVCOMMON_API extern const std::string PMML_xor;
QVCOMMON_API extern const std::string PMML_surrogate;
QVCOMMON_API extern const std::string PMML_operator;
QVCOMMON_API extern const std::string PMML_isMissing;
QVCOMMON_API extern const std::string PMML_isNotMissing;
QVCOMMON_API extern const std::string PMML_equal;
QVCOMMON_API extern const std::string PMML_notEqual;
QVCOMMON_API extern const std::string PMML_lessThan;
QVCOMMON_API extern const std::string PMML_lessOrEqual;
QVCOMMON_API extern const std::string PMML_greaterThan;
QVCOMMON_API extern const std::string PMML_greaterOrEqual;
QVCOMMON_API extern const std::string PMML_letter_n;  // "n"

}  // namespace QVXML_940
