#include "QVIterationReporter.h"

#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "QVMV.h"
#include "common/display/captured_display.h"
#include "common/virtual_slot.h"

using QVCommon_940::ProgressReport;
using QVCommon_940::ProgressReportVect;
using QVMath_940::QVIterationReporter;

namespace {

const std::vector<double> kFirst = {1.5, 2.0};
const std::vector<double> kSecond = {3.0};
const std::vector<double> kThird = {};

}  // namespace

TEST(IterationReporter, IsAProgressReport) {
  EXPECT_TRUE((std::is_base_of_v<ProgressReport, ProgressReportVect>));
  EXPECT_TRUE((std::is_base_of_v<ProgressReportVect, QVIterationReporter>));
  EXPECT_TRUE(std::is_abstract_v<ProgressReportVect>);
  EXPECT_TRUE(std::has_virtual_destructor_v<ProgressReport>);
}

TEST(IterationReporter, OrderOfTheVirtualOperations) {
  EXPECT_EQ(VirtualSlot(&ProgressReport::DiscreteMeasure), 2);
  EXPECT_EQ(VirtualSlot(&ProgressReport::ScaleMeasure), 3);
  EXPECT_EQ(VirtualSlot(&ProgressReportVect::VectorMeasure), 4);
  EXPECT_EQ(VirtualSlot(&QVIterationReporter::VectorMeasure), 4);
  EXPECT_EQ(VirtualSlot(&QVIterationReporter::Reset), 5);
  EXPECT_EQ(VirtualSlot(&QVIterationReporter::Display), 6);
}

TEST(IterationReporter, DefaultIsZero) {
  QVIterationReporter report;
  EXPECT_EQ(report.DiscreteMeasure("iterNum"), 0);
  EXPECT_EQ(report.DiscreteMeasure("stepHalving"), 0);
  EXPECT_EQ(report.ScaleMeasure("loglik"), 0.0);
  EXPECT_EQ(report.ScaleMeasure("time"), 0.0);
  EXPECT_EQ(report.VectorMeasure("paramEstim"), nullptr);
  EXPECT_EQ(report.VectorMeasure("paramEstim2"), nullptr);
  EXPECT_EQ(report.VectorMeasure("paramEstim3"), nullptr);
}

TEST(IterationReporter, FiveFiguresLeaveTheOtherVectors) {
  QVIterationReporter report;
  report.SetInfo(&kFirst, &kSecond, &kThird, 4, -12.5, 0.25);
  report.SetInfo(&kSecond, 5, 3, -11.5, 0.75);
  EXPECT_EQ(report.VectorMeasure("paramEstim"), &kSecond);
  EXPECT_EQ(report.VectorMeasure("paramEstim2"), &kSecond);
  EXPECT_EQ(report.VectorMeasure("paramEstim3"), &kThird);
  EXPECT_EQ(report.DiscreteMeasure("iterNum"), 5);
  EXPECT_EQ(report.DiscreteMeasure("stepHalving"), 3);
  EXPECT_EQ(report.ScaleMeasure("loglik"), -11.5);
  EXPECT_EQ(report.ScaleMeasure("time"), 0.75);
}

TEST(IterationReporter, SixFiguresLeaveTheHalvings) {
  QVIterationReporter report;
  report.SetInfo(&kFirst, 1, 7, 1.0, 2.0);
  report.SetInfo(&kThird, &kSecond, &kFirst, 4, -12.5, 0.25);
  EXPECT_EQ(report.VectorMeasure("paramEstim"), &kThird);
  EXPECT_EQ(report.VectorMeasure("paramEstim2"), &kSecond);
  EXPECT_EQ(report.VectorMeasure("paramEstim3"), &kFirst);
  EXPECT_EQ(report.DiscreteMeasure("iterNum"), 4);
  EXPECT_EQ(report.DiscreteMeasure("stepHalving"), 7);
  EXPECT_EQ(report.ScaleMeasure("loglik"), -12.5);
  EXPECT_EQ(report.ScaleMeasure("time"), 0.25);
}

TEST(IterationReporter, NamesAreExact) {
  QVIterationReporter report;
  report.SetInfo(&kFirst, 1, 7, 1.0, 2.0);
  for (const char * name : {"ITERNUM", "", "iterNum ", "iterNu", "loglik"}) {
    EXPECT_EQ(report.DiscreteMeasure(name), -1) << name;
  }
  EXPECT_EQ(report.DiscreteMeasure(std::string("iterNum\0", 8)), -1);
  for (const char * name : {"", "Loglik", "iterNum", "times"}) {
    EXPECT_TRUE(QVCommon_940::QVMV::IsMissing(report.ScaleMeasure(name))) << name;
  }
  for (const char * name : {"", "paramEstim1", "paramestim", "time"}) {
    EXPECT_EQ(report.VectorMeasure(name), nullptr) << name;
  }
}

TEST(IterationReporter, CopiesShareTheVectors) {
  QVIterationReporter report;
  report.SetInfo(&kFirst, 1, 7, 1.0, 2.0);
  QVIterationReporter copy(report);
  QVIterationReporter assigned;
  assigned = report;
  report.Reset();
  EXPECT_EQ(copy.VectorMeasure("paramEstim"), &kFirst);
  EXPECT_EQ(assigned.VectorMeasure("paramEstim"), &kFirst);
  EXPECT_EQ(assigned.DiscreteMeasure("stepHalving"), 7);
}

TEST(IterationReporter, ResetClearsAllSeven) {
  QVIterationReporter report;
  report.SetInfo(&kFirst, 1, 7, 1.0, 2.0);
  report.SetInfo(&kFirst, &kSecond, &kThird, 4, -12.5, 0.25);
  report.Reset();
  EXPECT_EQ(report.DiscreteMeasure("iterNum"), 0);
  EXPECT_EQ(report.DiscreteMeasure("stepHalving"), 0);
  EXPECT_EQ(report.ScaleMeasure("loglik"), 0.0);
  EXPECT_EQ(report.ScaleMeasure("time"), 0.0);
  EXPECT_EQ(report.VectorMeasure("paramEstim"), nullptr);
  EXPECT_EQ(report.VectorMeasure("paramEstim2"), nullptr);
  EXPECT_EQ(report.VectorMeasure("paramEstim3"), nullptr);
}

TEST(IterationReporter, DisplayOfANullPointer) {
  CapturedDisplay captured;
  QVIterationReporter().Display();
  EXPECT_EQ(captured.Text(),
            "\nQVIterationReporter display start"
            "\nIteration number = 0"
            "\nNumber of step halving = 0"
            "\nPseudo -2 log-likelihood = 0"
            "\nElapsed time in sec = 0"
            "\nParameter estimates pointer is 0"
            "\nQVIterationReporter display end");
}

TEST(IterationReporter, DisplayOfAllVectors) {
  CapturedDisplay captured;
  QVIterationReporter report;
  report.SetInfo(&kFirst, 1, 7, 1.0, 2.0);
  report.SetInfo(&kFirst, &kSecond, &kThird, 4, QVCommon_940::QVMV::Missing(), 0.25);
  report.Display();
  EXPECT_EQ(captured.Text(),
            "\nQVIterationReporter display start"
            "\nIteration number = 4"
            "\nNumber of step halving = 7"
            "\nPseudo -2 log-likelihood = miss"
            "\nElapsed time in sec = 0.25"
            "\nParameter estimates (size = 2)\n 1.5 2"
            "\nParameter estimates, second vector (size = 1)\n 3"
            "\nParameter estimates, third vector (size = 0)"
            "\nQVIterationReporter display end");
}
