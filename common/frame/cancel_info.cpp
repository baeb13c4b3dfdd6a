#include "QVCancelInfo.h"

namespace QVCommon_940 {

QVQueryCancel::~QVQueryCancel() = default;

}  // namespace QVCommon_940

namespace QVMath_940 {

QVCancelInfo::QVCancelInfo(QVCommon_940::QVQueryCancel * query) : fQuery(query) {
}

void QVCancelInfo::SetCancel() {
  fCancelled = true;
}

void QVCancelInfo::SetCancelPtr(QVCommon_940::QVQueryCancel * query) {
  fQuery = query;
}

QVCommon_940::QVQueryCancel * QVCancelInfo::GetCancelPtr() const {
  return fQuery;
}

bool QVCancelInfo::IsCancel() {
  if (!fCancelled && fQuery != nullptr) {
    fCancelled = fQuery->IsCancel();
  }
  return fCancelled;
}

bool QVCancelInfo::WillCancel() const {
  return fCancelled || (fQuery != nullptr && fQuery->WillCancel());
}

}  // namespace QVMath_940
