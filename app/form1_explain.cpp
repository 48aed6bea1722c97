#include "app/form1.h"

namespace tarvik {

void Form1::Explain() {}

}  // namespace tarvik
