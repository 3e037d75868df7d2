#include "widget/file_dialog.h"

#include <algorithm>

#include "widget/widget_text.h"

namespace quilla {

namespace {

// Names with their patterns, as the toolkit wants them: "name<tab>pattern", one a line.
std::string patternsOf(const WidgetContext* c, const std::string& mask) {
  if (mask.empty()) return "";
  if (c->settings.options.userMask) {
    // Pairs of a name and a pattern, as the caller wrote them.
    const std::vector<std::string> words = itemsOf(c, mask);
    std::string lines;
    for (std::size_t i = 0; i + 1 < words.size(); i += 2)
      lines += (lines.empty() ? "" : "\n") + words[i] + "\t" + words[i + 1];
    return lines.empty() ? mask : lines;
  }
  std::string pattern = mask;
  if (pattern.find(';') != pattern.npos) {
    std::replace(pattern.begin(), pattern.end(), ';', ',');
    pattern = "{" + pattern + "}";
  }
  return mask + "\t" + pattern + "\nAll files\t*";
}

} // namespace

bool chooseWidgetFile(const WidgetContext* c, const char* title, const char* mask, bool save, std::string* name) {
  const WidgetSystem* system = widgetSystem();
  if (!system) return false;
  const bool folder = !name->empty() && (name->back() == '\\' || name->back() == '/');
  const std::string patterns = patternsOf(c, mask ? mask : "");
  const std::string start = *name;
  return system->chooseFile({title, folder ? start.c_str() : "", folder ? "" : start.c_str(), patterns.c_str(), save,
                             c->settings.options.fileOnTop != 0},
                            name);
}

} // namespace quilla
