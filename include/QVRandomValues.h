/// Random variates of one chosen distribution: uniform, normal, chi-square, gamma or Wishart, one
/// number, a vector or a matrix a draw.
///
///     QVMath_940::QVRandomValues values;
///     values.SetSeed(2024);
///     values.SetParamGamma(2.5, 0.1);  // shape and rate
///     double x = values.GetRandom();
///
/// A `SetParam...` that succeeds chooses its distribution; one that fails (false) leaves the choice
/// as it was. A draw of the wrong form (a number from a multivariate choice, say) gives the missing
/// value or false, and costs no uniform number.
///
/// The uniform numbers come from a `QVURandom`: at first an own one, the Mersenne Twister with seed
/// 34567, then perhaps the caller's (`SetURNGPtr`). A copy clones an own source, whose stream
/// starts again from its seed, and shares the caller's. Not safe for use from two threads at a
/// time.
///
/// Beware of these, which callers rely on:
///  - `SetURNGPtr` counts once: when the source is the caller's already, another one is ignored and
///    the result is still true.
///  - `SetSeed` deletes the source in use, THE CALLER'S TOO, and its own new one is then never
///    deleted: do not call both on one object.
///  - The Wishart draw takes d = M - P degrees of freedom for every row of the triangle, not M - i:
///    the matrices have smaller diagonals than the textbook's, and M = P allows no draw at all.
///
/// Methods: normal, Kinderman and Ramage (QVRNGNormal.h); gamma with a shape above 1, G. S.
/// Fishman, "Sampling from the gamma distribution on a computer", Communications of the ACM 19
/// (1976) 407-409; below 1, algorithm GS of J. H. Ahrens and U. Dieter, Computing 12 (1974)
/// 223-246.
#pragma once

#include <vector>

#include "QVExport.h"
#include "QVSymMatrix.h"

namespace QVMath_940 {

class QVURandom;

class QVCOMMON_API QVRandomValues {
 public:
  /// Uniform numbers on (0, 1), seed 34567.
  QVRandomValues();
  QVRandomValues(const QVRandomValues & other);
  QVRandomValues & operator=(const QVRandomValues & other);

  /// Deletes the source of uniform numbers if it is an own one.
  ~QVRandomValues();

  // --- Source -----------------------------------------------------------------------------------

  /// Deletes the source in use, whosever it is, and makes a Mersenne Twister with this seed (its
  /// low 32 bits). Who owns the source stays as it was: see the warning above.
  void SetSeed(unsigned long seed);

  /// The tolerance of the Cholesky factorisations, 1e-12 at first. False, and nothing changed,
  /// unless t > 0.
  bool SetTolerance(double t);

  /// Draws from the caller's source from now on, which stays the caller's. False for null.
  bool SetURNGPtr(QVURandom * source);

  // --- Distribution -----------------------------------------------------------------------------

  /// One uniform number on (0, 1).
  bool SetParamUniform();

  /// One uniform number on (low, high). high > low.
  bool SetParamUniform(double low, double high);

  /// n uniform numbers on (0, 1). n >= 1; n = 1 is the single number.
  bool SetParamUniform(int n);

  /// As many uniform numbers as there are limits. Both lists of the same size of 1 or more, each
  /// low below its high; size 1 is the single number.
  bool SetParamUniform(const std::vector<double> & low, const std::vector<double> & high);

  /// One standard normal number.
  bool SetParamNormal();

  /// One normal number. sigma2, the variance, > 0.
  bool SetParamNormal(double mean, double sigma2);

  /// n independent standard normal numbers. n >= 1; n = 1 is the single number. The list of means
  /// is filled with 1.0 and not used.
  bool SetParamNormal(int n);

  /// A normal vector with these means and the covariance matrix sigma2 x cov. As many means as cov
  /// has rows, 1 or more; sigma2 > 0; the Cholesky factorisation of cov must leave at least one row
  /// in (a singular cov is no failure). Size 1 is the single number with variance sigma2, whatever
  /// cov holds.
  bool SetParamNormal(const std::vector<double> & means, double sigma2, const QVSymMatrix & cov);

  /// One chi-square number. df > 0.
  bool SetParamChi(double df);

  /// One gamma number with mean shape / rate. Both > 0.
  bool SetParamGamma(double shape, double rate);

  /// A p x p Wishart matrix with scale identity. p >= 1 and m >= p.
  bool SetParamWishart(int p, double m);

  /// A p x p Wishart matrix. p >= 1, m >= p, scale with p rows, of which the Cholesky factorisation
  /// must leave at least one in.
  bool SetParamWishart(int p, double m, const QVSymMatrix & scale);

  // --- Draws ------------------------------------------------------------------------------------

  /// One number. The missing value when the choice is not univariate.
  double GetRandom();

  /// One vector; `out` takes the size of the choice. False, with `out` as it was, unless the choice
  /// is uniform or normal and not univariate.
  bool GetRandom(std::vector<double> & out);

  /// One Wishart matrix. False, with `out` as it was, when the choice is not Wishart or M = P.
  bool GetRandom(QVSymMatrix & out);

  /// The choice and its parameters on the display stream.
  void Display() const;

 private:
  enum Distribution : int { kUniform, kNormal, kChiSquare, kGamma, kWishart };

  void Choose(Distribution distribution, bool standard, int nVariates, bool univariate);
  bool Factor(const QVSymMatrix & matrix, QVSymMatrix & factor) const;

  // One number of each distribution; the missing value for bad parameters.
  double RVUni(double low, double high);
  double RVSNor();
  double RVNor(double mean, double sd);
  double RVExp(double rate);
  double RVGam(double shape, double rate);
  double RVChi(double df);
  double GammaShapeAboveOne(double shape);
  double GammaShapeBelowOne(double shape);
  static double RVAuxF(double t);

  unsigned long fSeed = 34567;
  double fTolerance = 1e-12;
  QVURandom * fURNG;
  bool fOwnsURNG = true;
  Distribution fDistribution = kUniform;
  bool fUnivariate = true;
  int fNVariates = 0;
  bool fStandard = true;
  double fUniformLow = 0.0;
  double fUniformHigh = 1.0;
  std::vector<double> fvUniformLow;
  std::vector<double> fvUniformHigh;
  double fNormalMean = 0.0;
  std::vector<double> fvNormalMean;
  double fNormalSigma2 = 1.0;
  QVSymMatrix fmNormalCov;
  double fChiDf = 0.0;
  std::vector<double> fvChiDf;
  double fGammaShape = 0.0;
  double fGammaRate = 0.0;
  int fWishartP = 0;
  double fWishartM = 0.0;
  QVSymMatrix fmWishartScale;
  double fNormalSigma = 1.0;
  QVSymMatrix fmNormalChol;
  QVSymMatrix fmWishartChol;
};

}  // namespace QVMath_940
