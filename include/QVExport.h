/// The mark of the public interface. Everything without it stays hidden inside the shared object.
#pragma once

#define QVCOMMON_API __attribute__((visibility("default")))
