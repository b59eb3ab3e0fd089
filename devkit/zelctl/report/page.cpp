#include "devkit/zelctl/report/page.h"
namespace zelctl {
std::string ReportPage(const Report& report) { return report.panel.name; }
}  // namespace zelctl
