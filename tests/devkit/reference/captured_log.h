// What the libraries wrote to the log since it was last taken.
#pragma once

#include <string>
#include <vector>

std::vector<std::string> TakeLog();
