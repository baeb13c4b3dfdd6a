/// The reference figures of tests/data/distribution, and the functions that they are figures of.
#pragma once

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "QVDistFun.h"

namespace figures {

/// A point: its arguments in the order of the function's, and the function's value.
struct Point {
  std::vector<double> arguments;
  double value = 0.0;
};

/// The points of "bulk" and "tail".
using Regions = std::map<std::string, std::vector<Point>>;

inline Regions Read(const std::string & folder, const std::string & function) {
  Regions regions;
  std::ifstream file(folder + "/" + function + ".csv");
  std::string line;
  std::getline(file, line);  // the origin
  std::getline(file, line);  // the names of the columns
  while (std::getline(file, line)) {
    std::istringstream cells(line);
    std::string region;
    std::getline(cells, region, ',');
    Point point;
    for (std::string cell; std::getline(cells, cell, ',');)
      point.arguments.push_back(std::stod(cell));
    point.value = point.arguments.back();
    point.arguments.pop_back();
    regions[region].push_back(point);
  }
  return regions;
}

using Arguments = const std::vector<double> &;
using Function = double (*)(Arguments);

/// Relative error; for log-gamma, which passes through 0, the absolute one while it is below 1.
inline double Error(const std::string & function, double value, double expected) {
  const double size = std::fabs(expected);
  return std::fabs(value - expected) / (function == "zelvdnlgam" && size < 1.0 ? 1.0 : size);
}

struct LibraryFunction {
  std::string name;
  Function call;
};

inline const std::vector<LibraryFunction> & LibraryFunctions() {
  using D = QVMath_940::QVDistFun;
  static const std::vector<LibraryFunction> functions{
      {"CdfStdNorm", [](Arguments a) { return D::CdfStdNorm(a[0]); }},
      {"CdfNorm", [](Arguments a) { return D::CdfNorm(a[0], a[1], a[2]); }},
      {"CdfChi", [](Arguments a) { return D::CdfChi(a[0], a[1]); }},
      {"SigChi", [](Arguments a) { return D::SigChi(a[0], a[1]); }},
      {"CdfGam", [](Arguments a) { return D::CdfGam(a[0], a[1], a[2]); }},
      {"CdfT", [](Arguments a) { return D::CdfT(a[0], a[1]); }},
      {"SigT", [](Arguments a) { return D::SigT(a[0], a[1]); }},
      {"CdfF", [](Arguments a) { return D::CdfF(a[0], a[1], a[2]); }},
      {"SigF", [](Arguments a) { return D::SigF(a[0], a[1], a[2]); }},
      {"CdfBeta", [](Arguments a) { return D::CdfBeta(a[0], a[1], a[2]); }},
      {"CdfBin",
       [](Arguments a) {
         long status = 0;
         return D::CdfBin(a[0], a[1], a[2], status);
       }},
      {"CDFHyper",
       [](Arguments a) {
         int status = 0;
         return D::CDFHyper(a[0], a[1], a[2], a[3], status);
       }},
      {"PdfBin",
       [](Arguments a) {
         long status = 0;
         return D::PdfBin(a[0], a[1], a[2], status);
       }},
      {"PdfNegBin",
       [](Arguments a) {
         long status = 0;
         return D::PdfNegBin(a[0], a[1], a[2], status);
       }},
      {"PdfHyper",
       [](Arguments a) {
         return D::PdfHyper(std::lround(a[0]), std::lround(a[1]), std::lround(a[2]),
                            std::lround(a[3]));
       }},
      {"PdfGamma", [](Arguments a) { return D::PdfGamma(a[0], a[1], a[2]); }},
      {"PdfNormal", [](Arguments a) { return D::PdfNormal(a[0], a[1], a[2]); }},
      {"PdfNormalStandard", [](Arguments a) { return D::PdfNormalStandard(a[0]); }},
      {"PdfT",
       [](Arguments a) {
         long status = 0;
         return D::PdfT(a[0], a[1], status);
       }},
      {"zelvdnlgam", [](Arguments a) { return D::zelvdnlgam(a[0]); }},
  };
  return functions;
}

/// The largest error of a function over points, and where it stands.
struct Worst {
  double error = 0.0;
  std::vector<double> arguments;
};

template <typename Call>
Worst LargestError(const std::string & function, const std::vector<Point> & points, Call call) {
  Worst worst;
  for (const Point & point : points) {
    const double error = Error(function, call(point.arguments), point.value);
    if (!(error <= worst.error)) worst = {error, point.arguments};
  }
  return worst;
}

}  // namespace figures
