#include "mac.h"
#include <gtest/gtest.h>
