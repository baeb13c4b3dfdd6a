/// The data dictionary of a model: an ordered list of variables, which of them is the target, which
/// are responses, which is the frequency weight, and the case counts of the last pass over the
/// data.
///
///     QVVarList list;
///     list.AddContVar("mass", "Body mass", VariableRoleTarget);
///     list.AddContVar("flipper", "Flipper length", VariableRoleInput);
///     list.AddCatVar("species", "", 0, MeasureLevelStringCategorical, VariableRoleInput);
///     list.SetWeightVar("n", "Cases", IQVVariable::WRoundingOption(1));
///     list.GetTargetVariable()->GetVariableName();       // "mass"
///     list.GetNumInputVars();                            // 2
///
/// Indexes are positions in the list, from 0; -1 means none. Names are unique, compared as exact
/// bytes. The weight counts neither as continuous nor as categorical.
///
/// Ownership: the list owns its variables and its field formats element. Pointers given out stay
/// valid until the variable is removed or replaced or the list is read anew. Copies are deep; a
/// list that was moved from may be assigned or destroyed.
///
/// After a failed read the list may hold null entries: every operation here steps over them, and
/// `GetVarAt` answers null there.
///
/// Deliberate oddities, each of them relied upon:
/// - An added variable with the target role takes the target over; `SetVariableRole` gives the
///   target only to a list that has none, although the variable's own role changes.
/// - `SetVariableRole` with another role leaves a response variable in the response list.
/// - Removing a categorical target leaves the number of categorical variables as it was, and
///   removing any variable with the target role leaves the list without a target.
/// - Removing a weight variable that the weight index does not name (as after reading) lowers the
///   number of categorical variables.
/// - The line counts of `WriteObjectXML` and `ReadObjectXML` leave out the two frame lines.
///
/// Threads: a plain object, no locks.
#pragma once

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "IQVVariable.h"
#include "QVExport.h"
#include "QVWeightVar.h"

namespace QVXML_940 {

class QVCOMMON_API QVVarList {
 public:
  using MeasureLevel = IQVVariable::MeasureLevel;
  using VariableRole = IQVVariable::VariableRole;

  QVVarList();
  virtual ~QVVarList();
  QVVarList(QVVarList const &);
  QVVarList & operator=(QVVarList const &);
  QVVarList(QVVarList &&) noexcept;
  QVVarList & operator=(QVVarList &&) noexcept;

  // --- Adding. Each gives the new index, or -1 and no change for an empty name or one in use. ----

  /// Continuous variables, by the constructors of `QVContVar`.
  int AddContVar(std::string const & name, std::string const & label, VariableRole role);
  int AddContVar(std::string const & name, std::string const & label, double min, double max,
                 VariableRole role, bool useBins, int nBins);
  int AddContVar(std::string const & name, std::string const & label,
                 std::vector<double> const & cuts, bool useBins, VariableRole role);
  int AddContVar(std::string const & name, std::string const & label, double min, double max,
                 std::vector<double> const & cuts, bool useBins, VariableRole role);

  /// A categorical variable of `nCategories`, not ordinal, with nothing encoded yet.
  int AddCatVar(std::string const & name, std::string const & label, int nCategories,
                MeasureLevel level, VariableRole role);

  /// Categorical variables whose values are encoded in the order given: numeric values give level
  /// 2, strings level 3. The number of categories is the number of values. `sumFreqWts` are the
  /// categories' sums of weights, `labels` their value labels. Write the type of strings that you
  /// list (`std::vector<std::string>{"f", "m"}`): two literals in braces alone are ambiguous.
  int AddCatVar(std::string const & name, std::string const & label,
                std::vector<double> const & values, VariableRole role);
  int AddCatVar(std::string const & name, std::string const & label,
                std::vector<double> const & values, std::vector<std::string> const & labels,
                VariableRole role);
  int AddCatVar(std::string const & name, std::string const & label,
                std::vector<double> const & values, std::vector<double> const & sumFreqWts,
                VariableRole role);
  int AddCatVar(std::string const & name, std::string const & label,
                std::vector<double> const & values, std::vector<double> const & sumFreqWts,
                std::vector<std::string> const & labels, VariableRole role);
  int AddCatVar(std::string const & name, std::string const & label,
                std::vector<std::string> const & values, VariableRole role);
  int AddCatVar(std::string const & name, std::string const & label,
                std::vector<std::string> const & values, std::vector<std::string> const & labels,
                VariableRole role);
  int AddCatVar(std::string const & name, std::string const & label,
                std::vector<std::string> const & values, std::vector<double> const & sumFreqWts,
                VariableRole role);
  int AddCatVar(std::string const & name, std::string const & label,
                std::vector<std::string> const & values, std::vector<double> const & sumFreqWts,
                std::vector<std::string> const & labels, VariableRole role);

  /// Sets the frequency weight variable: in the place of the one before, else at the end. Returns
  /// its index. The name is not compared with the others.
  int SetWeightVar(std::string const & name, std::string const & label,
                   IQVVariable::WRoundingOption option);

  /// Adds a copy of `variable`, which stays the caller's; a weight variable goes where
  /// `SetWeightVar` puts one. -1 for null, an empty name or one in use, and a variable that is not
  /// the class its level tells.
  int AddNewVar(IQVVariable const * variable);

  /// Removes a variable; false when there is none. Indexes above it drop by 1.
  bool RemoveVar(int index);
  bool RemoveVar(std::string name);

  // --- Looking up -------------------------------------------------------------------------------

  /// Number of variables.
  int Size() const;

  /// The variable at an index; null outside the list.
  IQVVariable * GetVarAt(int index);
  IQVVariable const * GetVarAt(int index) const;

  /// The variable of a name, or null.
  IQVVariable * GetVariable(std::string const & name);
  IQVVariable const * GetVariable(std::string const & name) const;

  /// The encoder of the variable at an index; null outside the list.
  IQVEncoder * GetEncoderAt(int index);
  IQVEncoder const * GetEncoderAt(int index) const;

  /// The index of a name, or -1.
  int FindVariable(std::string const & name) const;

  /// The role of the variable at an index; undefined (0) outside the list.
  VariableRole GetVariableRole(int index) const;

  /// Index of the target, of the first response variable and of the weight; -1 with none.
  int GetTargetIndex() const;
  int GetTargetRespIndex() const;
  int GetFreqWeightIndex() const;

  /// The variables at the three indexes, or null. The weight is null too when another kind of
  /// variable stands at its index.
  IQVVariable * GetTargetVariable();
  IQVVariable const * GetTargetVariable() const;
  IQVVariable * GetTargetRespVariable();
  IQVVariable const * GetTargetRespVariable() const;
  QVWeightVar * GetFreqWeightVariable();
  QVWeightVar const * GetFreqWeightVariable() const;

  /// Indexes of the response variables, in the order in which they became so.
  std::vector<int> const & GetMutipleResponseVariables() const;

  /// Categories of the target and of the first response variable; 0 with none.
  int GetNTargetCats() const;
  int GetNOutputCats() const;

  /// Continuous and categorical variables, as counted when they were added and removed.
  int GetNumContVar() const;
  int GetNumCatVar() const;

  /// Variables with the role input and possible input.
  int GetNumInputVars() const;
  int GetNumPossibleInputVars() const;

  /// The number of categories of each input variable, in list order.
  std::vector<int> GetNInputCats() const;

  /// Appends the names of the input variables and of the response variables, in list order.
  void GetVarNames(std::vector<std::string> & inputs, std::vector<std::string> & responses) const;

  // --- Changing ---------------------------------------------------------------------------------

  /// False when there is no variable at the index.
  bool SetMissingValueReplacement(int index, std::string const & text);
  bool SetVariableRole(int index, VariableRole role);

  /// Updates every variable's number of categories; the sum of the results.
  int UpdateNumbersOfCategories();

  /// Gives the target another encoder and its number of categories. With a categorical target the
  /// list takes ownership of `encoder` in every case; the result is true when it is a category
  /// encoder with at least one category. With no categorical target nothing happens: false, and the
  /// encoder stays the caller's.
  bool ChangeTargetEncoder(IQVEncoder * encoder);

  /// Case counts of the last pass over the data, 0 at first.
  void SetUnWeightedCount(double count);
  void SetWeightedCount(double count);
  void SetDroppedCount(double count);
  void SetBadWeightCount(double count);
  void SetWeightedDroppedCount(double count);
  double GetUnWeightedCount() const;
  double GetWeightedCount() const;
  double GetDroppedCount() const;
  double GetBadWeightCount() const;
  double GetWeightedDroppedCount() const;

  /// Whether a case with any missing value is left out; false at first.
  void SetListwiseDeletion(bool listwise);
  bool GetListwiseDeletion() const;

  /// Takes ownership of the element that describes all fields' formats, and destroys the one
  /// before.
  void SetFieldFormatsElement(XMLElement * element);
  XMLElement * GetFieldFormatsElement();
  XMLElement const * GetFieldFormatsElement() const;

  // --- Keeping and showing ----------------------------------------------------------------------

  /// Writes the list as one object of the persistence format, `tabs` deep. Null entries are left
  /// out. Returns 5 + the variables' lines + one line for each variable's level.
  int WriteObjectXML(std::ostream & out, int tabs) const;

  /// Replaces the variables, the numbers of continuous and categorical variables, and the target
  /// and response index by what the stream holds; everything else keeps what it had. A weight
  /// variable of the list is read into if the stream brings one, and destroyed otherwise. Returns
  /// the same count as writing. A broken stream is reported by one line on the standard error
  /// stream, behind the lines of the parts that failed, and a thrown pointer to a new
  /// `IOException`, which the caller deletes.
  int ReadObjectXML(std::ifstream & in);

  void Display() const;

 protected:
  /// Appends an index to the response list. False outside the list.
  bool AddResponseVariable(int index);

  /// Takes an index out of the response list and lowers those above it, after the variable is gone:
  /// `index` may equal the size. False outside that range and for an empty list of variables, whose
  /// response list is emptied. The target-response index stays the first of the response list.
  /// While that index is -1, as after reading a list without one, no entry is touched.
  bool RemoveResponseVariable(int index);

  /// Appends an index to the response list, unless it is there, or takes it out. The
  /// target-response index is -1 for an empty list; one that was -1 becomes the first entry; any
  /// other stays, also when its variable was taken out. Always false.
  bool ChangeVariableRole(bool add, int index);

 private:
  bool Contains(int index) const;
  IQVVariable * At(int index) const;
  QVWeightVar * WeightAt(int index) const;
  bool IsNameFree(std::string const & name) const;
  int Append(std::unique_ptr<IQVVariable> variable);
  int AddCont(std::unique_ptr<IQVVariable> variable);
  int AddCat(std::unique_ptr<IQVVariable> variable);
  template <class T>
  int AddCoded(std::string const & name, std::string const & label, MeasureLevel level,
               std::vector<T> const & values, std::vector<double> const & sumFreqWts,
               VariableRole role);
  int PutWeight(std::unique_ptr<QVWeightVar> weight);
  void ApplyRole(int index);
  int LabelValues(int index, std::vector<std::string> const & labels);
  int CountRole(VariableRole role) const;
  bool ReadContent(std::ifstream & in, int & lines);
  bool ReadVariables(std::ifstream & in, std::unique_ptr<IQVVariable> weight, int & lines);

  std::vector<std::unique_ptr<IQVVariable>> fVariables;
  int fNumberOfContinuous = 0;
  int fNumberOfCategorical = 0;
  int fTargetIndex = -1;
  int fTargetRespIndex = -1;
  int fFreqWeightIndex = -1;
  bool fListwiseDeletion = false;
  double fUnWeightedCount = 0.0;
  double fWeightedCount = 0.0;
  double fDroppedCount = 0.0;
  double fBadWeightCount = 0.0;
  double fWeightedDroppedCount = 0.0;
  std::vector<int> fResponseVariables;
  std::unique_ptr<XMLElement> fFieldFormats;
};

}  // namespace QVXML_940
