/// What every encoder of a variable can do: turn raw field values into the numbers that statistics
/// work on, turn codes back, and know which raw values count as missing.
///
/// A raw value is missing when it is the system-missing number (`QVMV`), when it was named as a
/// discrete user-missing value, or when it lies in the one user-missing interval.
///
///     QVCatNumEncoder encoder;                 // numeric categories
///     encoder.AddDiscreteUserMissing(9.0, "no answer");
///     encoder.Encode(5.0);                     // 0: the first category
///     encoder.Encode(9.0);                     // -1: missing
///     encoder.EncodeConst(7.0);                // -1: unknown, and nothing is added
///
/// Each concrete class fills every operation; one that does not apply to it has a fixed answer:
///
/// | Operation            | QVCatNumEncoder | QVStringEncoder | QVContEncoder  | QVRoundEncoder |
/// |----------------------|-----------------|-----------------|----------------|----------------|
/// | number of categories | categories seen | categories seen | number of bins | 0              |
/// | Encode of a string   | -1              | the code        | missing        | missing        |
/// | Encode of a number   | the code        | -1              | the number     | the weight     |
/// | IsMissing, a string  | true            | tested          | true           | true           |
/// | IsMissing, a number  | tested          | true            | tested         | tested         |
/// | Decode               | number text     | the string      | empty          | empty          |
/// | DecodeNum            | the number      | missing         | missing        | missing        |
/// | value labels         | held            | held            | ignored, null  | ignored, null  |
/// | missing numbers      | held            | refused, null   | held           | held           |
/// | missing strings      | refused, null   | held            | refused, null  | refused, null  |
/// | missing interval     | held            | refused         | held           | held           |
///
/// Failures are told in band: -1.0 by the category encoders, the missing value by the two that pass
/// numbers on. Only reading throws, a pointer to a new `IOException`.
///
/// Ownership: vectors returned by pointer stay the encoder's. Threads: `Encode` may extend the
/// encoder; the const operations may run together as long as nobody calls `Encode`.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "QVExport.h"

namespace QVXML_940 {

class QVCOMMON_API IQVEncoder {
 public:
  /// The concrete classes, with the numbers that the persistence format holds.
  enum EncoderType : int {
    NoEncoder = 0,  ///< what a persisted variable without an encoder says
    ContEncoder = 1,
    CatNumEncoder = 2,
    StringEncoder = 3,
    RoundEncoder = 4
  };

  virtual ~IQVEncoder();

  /// Which concrete class this is.
  virtual EncoderType GetEncoderType() const = 0;

  /// Categories seen so far, bins of a continuous encoder, 0 for a rounding one.
  virtual int GetNumberOfCategories() const = 0;

  /// Encodes a raw value. A category encoder gives a value it meets for the first time the next
  /// code; missing values get none (-1.0). The others give the number or the missing value.
  virtual double Encode(std::string const & value) = 0;
  virtual double Encode(double value) = 0;

  /// `Encode` that never extends the encoder: an unknown category gives -1.0.
  virtual double EncodeConst(std::string const & value) const = 0;
  virtual double EncodeConst(double value) const = 0;

  /// Whether a raw value counts as missing; true for a value of the wrong kind.
  virtual bool IsMissing(std::string const & value) const = 0;
  virtual bool IsMissing(double value) const = 0;

  /// The category of a code as text (a number in its 15-digit form, never its label); empty for a
  /// code that was not given out.
  virtual std::string Decode(int code) const = 0;

  /// The category of a code as a number; the missing value for a code that was not given out.
  virtual double DecodeNum(int code) const = 0;

  /// A deep copy, owned by the caller.
  virtual IQVEncoder * Clone() const = 0;

  /// Replaces all value labels, whatever their number.
  virtual void SetValueLabels(std::vector<std::string> const & labels) = 0;

  /// Sets the label of one category. Labels fewer than categories are first filled up with empty
  /// ones, even when `code` is then outside the categories and the label ignored.
  virtual void SetValueLabel(int code, std::string const & label) = 0;

  /// Appends a user-missing value with its label; a value listed twice stands twice. False, and
  /// nothing changes, when the encoder takes values of the other kind.
  virtual bool AddDiscreteUserMissing(double value, std::string const & label) = 0;
  virtual bool AddDiscreteUserMissing(std::string const & value, std::string const & label) = 0;

  /// Sets the user-missing interval, both ends included. False, and nothing changes, unless
  /// `high > low` and no interval is set yet: a set interval cannot be replaced.
  virtual bool SetMissingInterval(double low, double high) = 0;

  /// The value labels in code order; null when the class has none.
  virtual std::vector<std::string> const * GetValueLabels() const = 0;

  /// The user-missing values; null when they are of the other kind.
  virtual std::vector<double> const * GetDiscreteMissValues() const = 0;
  virtual std::vector<std::string> const * GetDiscreteMissValuesStr() const = 0;

  /// The labels of the user-missing values, parallel to them.
  virtual std::vector<std::string> const * GetMissValueLabels() const = 0;

  /// The user-missing interval; false, with both arguments unchanged, when none is set.
  virtual bool GetMissingInterval(double & low, double & high) const = 0;

  /// Writes the encoder as one object of the persistence format, `tabs` deep. Returns the lines
  /// written.
  virtual int WriteObjectXML(std::ostream & out, int tabs) const = 0;

  /// Clears the encoder and reads it back. Returns the lines read. A broken stream is reported by
  /// one line on the standard error stream and a thrown pointer to a new `IOException`, which the
  /// caller deletes; the encoder then holds what was read so far.
  virtual int ReadObjectXML(std::ifstream & in) = 0;

  /// Shows the encoder on the display stream.
  virtual void Display() const = 0;

 protected:
  IQVEncoder() = default;
  IQVEncoder(IQVEncoder const &) = default;
  IQVEncoder & operator=(IQVEncoder const &) = default;
};

}  // namespace QVXML_940
