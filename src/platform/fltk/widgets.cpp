// Dialogs on FLTK: frames, controls at given places, and a queue of what the user does.
#include <FL/Fl.H>
#include <FL/Fl_Box.H>
#include <FL/Fl_Check_Button.H>
#include <FL/Fl_Choice.H>
#include <FL/Fl_Double_Window.H>
#include <FL/Fl_Hold_Browser.H>
#include <FL/Fl_Menu_Bar.H>
#include <FL/Fl_Native_File_Chooser.H>
#include <FL/Fl_RGB_Image.H>
#include <FL/Fl_Round_Button.H>
#include <FL/Fl_Scroll.H>
#include <FL/Fl_Shared_Image.H>
#include <FL/fl_ask.H>
#include <FL/fl_draw.H>
#include <FL/x.H>

#include <cstring>
#include <deque>
#include <map>
#include <memory>

#include "platform/fltk/widget_parts.h"
#include "platform/window_system.h"

namespace {

using namespace quilla;
using namespace quilla::fltk;

constexpr std::size_t kMostEvents = 10000; // a program that does not ask loses events, not memory
constexpr int kMenuHeight = 28;

struct DialogFrame;

struct Control {
  Fl_Widget* widget = nullptr; // of the frame
  int frame = 0;
  ControlShape shape = ControlShape::kLabel;
  std::unique_ptr<Fl_Image> image;
  std::string hint;
};
struct MenuEntry {
  int frame = 0;
  std::string path;
};

struct Desk {
  std::map<int, std::unique_ptr<DialogFrame>> frames;
  std::map<int, Control> controls;
  std::map<int, MenuEntry> menus;
  std::deque<WidgetEvent> events;
};
Desk& desk() {
  static Desk d;
  return d;
}

// A frame that tells its new size.
struct DialogFrame : Fl_Double_Window {
  int number;
  bool fixed, hasClose;
  Fl_Menu_Bar* menu = nullptr;
  Fl_Group* content = nullptr;

  explicit DialogFrame(const FrameWish& wish)
      : Fl_Double_Window(wish.place.x, wish.place.y, wish.place.width, wish.place.height), number(wish.widget),
        fixed(!wish.resizable), hasClose(wish.hasClose) {
    content = wish.scrolled ? new Fl_Scroll(0, 0, w(), h()) : new Fl_Group(0, 0, w(), h());
    content->resizable(nullptr);
    content->end();
    if (wish.background != kNoWidgetColor)
      color(fl_rgb_color(static_cast<uchar>(wish.background >> 16), static_cast<uchar>(wish.background >> 8),
                         static_cast<uchar>(wish.background)));
    end();
    resizable(content);
    copy_label(wish.title);
    position(wish.place.x, wish.place.y);
    if (wish.modal) set_modal();
    callback([](Fl_Widget* self, void*) {
      const auto* frame = static_cast<DialogFrame*>(self);
      if (frame->hasClose) putWidgetEvent({.kind = WidgetEventKind::kClose, .widget = frame->number});
    });
  }
  int menuHeight() const { return menu ? kMenuHeight : 0; }
  void resize(int nx, int ny, int nw, int nh) override {
    const bool other = nw != w() || nh != h();
    Fl_Double_Window::resize(nx, ny, nw, nh);
    if (other && shown())
      putWidgetEvent({.kind = WidgetEventKind::kResize, .widget = number, .row = nw, .column = nh - menuHeight()});
  }
  void addMenuBar() {
    if (menu) return;
    size(w(), h() + kMenuHeight);
    content->resize(0, kMenuHeight, w(), h() - kMenuHeight); // its children move, too
    menu = new Fl_Menu_Bar(0, 0, w(), kMenuHeight);
    menu->box(FL_FLAT_BOX);
    add(menu);
  }
};

DialogFrame* frameOf(int number) {
  const auto found = desk().frames.find(number);
  return found == desk().frames.end() ? nullptr : found->second.get();
}
Control* controlOf(int number) {
  const auto found = desk().controls.find(number);
  return found == desk().controls.end() ? nullptr : &found->second;
}

Fl_Color colorOf(int color) {
  return fl_rgb_color(static_cast<uchar>(color >> 16), static_cast<uchar>(color >> 8), static_cast<uchar>(color));
}

// A text of the program as a label, in which '@' begins a symbol.
std::string labelOf(const char* text) {
  std::string label;
  for (; *text; ++text) label += *text == '@' ? "@@" : std::string(1, *text);
  return label;
}
// The same as an item, in which '/' begins a menu below.
std::string itemOf(const char* text) {
  std::string label;
  for (; *text; ++text) label += *text == '@' ? "@@" : *text == '/' ? "\\/" : std::string(1, *text);
  return label;
}

void metrics(WidgetMetrics* m) {
  constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
  constexpr int kLetterCount = 52, kLeading = 2;
  fl_font(dialogFont().face, dialogFont().size);
  const int width = static_cast<int>(fl_width(kLetters) / kLetterCount + 0.5);
  *m = {Fl::w(), Fl::h(), width, fl_height() + kLeading, 0, 0};
}

bool setFont(const char* name, int points, bool bold, bool italic) {
  constexpr int kPixelsPerInch = 96, kPointsPerInch = 72;
  int face = -1;
  if (!*name || !strcasecmp(name, "arial") || !strcasecmp(name, "helvetica")) face = FL_HELVETICA;
  if (!strcasecmp(name, "courier") || !strcasecmp(name, "courier new")) face = FL_COURIER;
  if (!strcasecmp(name, "times") || !strcasecmp(name, "times new roman")) face = FL_TIMES;
  const int named = face;
  if (named < 0) {
    const int count = Fl::set_fonts(nullptr);
    for (int i = 0; i < count && face < 0; ++i) {
      int attributes = 0;
      const char* known = Fl::get_font_name(i, &attributes);
      const int wanted = (bold ? FL_BOLD : 0) | (italic ? FL_ITALIC : 0);
      if (known && attributes == wanted && !strncasecmp(known, name, std::strlen(name))) face = i;
    }
  } else {
    face += (bold ? FL_BOLD : 0) + (italic ? FL_ITALIC : 0);
  }
  if (face < 0) return false;
  dialogFont() = {face, points * kPixelsPerInch / kPointsPerInch};
  return true;
}

void openFrame(const FrameWish& wish) { desk().frames[wish.widget] = std::make_unique<DialogFrame>(wish); }

void addMenu(const MenuWish& wish) {
  DialogFrame* frame = frameOf(wish.frame);
  if (!frame) return;
  frame->addMenuBar();
  frame->menu->textfont(dialogFont().face);
  frame->menu->textsize(dialogFont().size);
  std::string path = wish.value ? wish.text : itemOf(wish.picture ? "Picture" : wish.text);
  if (wish.menu) path = desk().menus[wish.menu].path + "/" + path;
  if (wish.menu || wish.isMenu) desk().menus[wish.widget] = {wish.frame, path};
  if (wish.isMenu) return; // it appears with its first item
  // Both numbers in one word.
  const long data = static_cast<long>(wish.widget) << 16 | wish.value;
  frame->menu->add(
      path.c_str(), 0,
      [](Fl_Widget*, void* word) {
        const long both = reinterpret_cast<long>(word);
        putWidgetEvent({.kind = WidgetEventKind::kPress,
                        .widget = static_cast<int>(both >> 16),
                        .value = static_cast<int>(both & 0xFFFF)});
      },
      reinterpret_cast<void*>(data));
}

void pressed(Fl_Widget* widget, void* number) {
  const int id = static_cast<int>(reinterpret_cast<long>(number));
  const Control* control = controlOf(id);
  if (!control) return;
  const bool radio = control->shape == ControlShape::kRadio;
  auto* button = static_cast<Fl_Button*>(widget);
  if (radio) button->value(1);
  putWidgetEvent({.kind = WidgetEventKind::kPress, .widget = id, .value = button->value()});
}

void chosen(Fl_Widget* widget, void* number) {
  const int id = static_cast<int>(reinterpret_cast<long>(number));
  const Control* control = controlOf(id);
  if (!control) return;
  const int item = control->shape == ControlShape::kDropList ? static_cast<Fl_Choice*>(widget)->value() + 1
                                                             : static_cast<Fl_Browser*>(widget)->value();
  if (item > 0) putWidgetEvent({.kind = WidgetEventKind::kChoice, .widget = id, .value = item});
}

template <typename Button> Fl_Widget* makeButton(const ControlWish& wish, const WidgetBox& b) {
  auto* button = new Button(b.x, b.y, b.width, b.height);
  button->copy_label(labelOf(wish.text).c_str());
  button->value(static_cast<char>(wish.value));
  button->callback(pressed, reinterpret_cast<void*>(static_cast<long>(wish.widget)));
  return button;
}

Fl_Align alignmentOf(int justification) {
  const Fl_Align side = justification == kJustifyRight    ? FL_ALIGN_RIGHT
                        : justification == kJustifyCenter ? FL_ALIGN_CENTER
                                                          : FL_ALIGN_LEFT;
  return side | FL_ALIGN_INSIDE | FL_ALIGN_CLIP;
}

Fl_Widget* makeLabel(const ControlWish& wish, const WidgetBox& b) {
  auto* label = new Fl_Box(b.x, b.y, b.width, b.height);
  label->box(wish.framed ? FL_THIN_DOWN_BOX : FL_FLAT_BOX);
  label->copy_label(labelOf(wish.text).c_str());
  label->align(alignmentOf(wish.justification));
  return label;
}

Fl_Widget* makeList(const ControlWish& wish, const WidgetBox& b) {
  auto* list = new Fl_Hold_Browser(b.x, b.y, b.width, b.height);
  list->format_char(0);
  list->column_char(0);
  list->textfont(dialogFont().face);
  list->textsize(dialogFont().size);
  for (const std::string& item : wish.items) list->add(item.c_str());
  if (wish.value > 0) list->value(wish.value);
  list->callback(chosen, reinterpret_cast<void*>(static_cast<long>(wish.widget)));
  return list;
}

Fl_Widget* makeDropList(const ControlWish& wish, const WidgetBox& b) {
  auto* list = new Fl_Choice(b.x, b.y, b.width, b.height);
  list->textfont(dialogFont().face);
  list->textsize(dialogFont().size);
  for (const std::string& item : wish.items) {
    // Two items of the same text stay two.
    const int place = list->add("item ", 0, nullptr);
    list->replace(place, labelOf(item.c_str()).c_str());
  }
  list->value(wish.value - 1);
  list->callback(chosen, reinterpret_cast<void*>(static_cast<long>(wish.widget)));
  return list;
}

template <typename Input> Fl_Widget* makeInput(const ControlWish& wish, const WidgetBox& b) {
  auto* input = new TextField<Input>(wish.widget, b);
  if (wish.password) input->input_type(FL_SECRET_INPUT);
  input->readonly(wish.readOnly);
  input->textfont(dialogFont().face);
  input->textsize(dialogFont().size);
  input->value(wish.text);
  return input;
}

Fl_Widget* makeGauge(const ControlWish& wish, const WidgetBox& b) {
  auto* gauge = new Gauge(b, wish.vertical, wish.smooth);
  gauge->box(wish.framed ? FL_THIN_DOWN_BOX : FL_FLAT_BOX);
  gauge->part = wish.value;
  return gauge;
}

Fl_Widget* makeScale(const ControlWish& wish, const WidgetBox& b) {
  auto* scale = new ScaleBar(wish.widget, b, wish.range, wish.vertical);
  scale->value(wish.value);
  return scale;
}

Fl_Widget* makeControl(const ControlWish& wish, const WidgetBox& b) {
  switch (wish.shape) {
  case ControlShape::kLabel: return makeLabel(wish, b);
  case ControlShape::kCheck: return makeButton<Fl_Check_Button>(wish, b);
  case ControlShape::kRadio: return makeButton<Fl_Round_Button>(wish, b);
  case ControlShape::kPush: {
    Fl_Widget* button = makeButton<Fl_Button>(wish, b);
    button->align(alignmentOf(wish.justification));
    return button;
  }
  case ControlShape::kList: return makeList(wish, b);
  case ControlShape::kDropList: return makeDropList(wish, b);
  case ControlShape::kLine: return makeInput<Fl_Input>(wish, b);
  case ControlShape::kLines: return makeInput<Fl_Multiline_Input>(wish, b);
  case ControlShape::kScale: return makeScale(wish, b);
  case ControlShape::kProgress: return makeGauge(wish, b);
  case ControlShape::kDraw: return new DrawArea(wish.widget, b);
  case ControlShape::kTable: {
    ControlWish placed = wish;
    placed.place = b;
    return new Sheet(placed);
  }
  case ControlShape::kSeparator: return new Rule(b, wish.lineStyle, wish.vertical);
  }
  return nullptr;
}

void applyColors(const Control& control, int background, int foreground) {
  if (background != kNoWidgetColor) control.widget->color(colorOf(background));
  if (foreground == kNoWidgetColor) return;
  const Fl_Color color = colorOf(foreground);
  control.widget->labelcolor(color);
  switch (control.shape) {
  case ControlShape::kLine:
  case ControlShape::kLines: static_cast<Fl_Input*>(control.widget)->textcolor(color); break;
  case ControlShape::kList: static_cast<Fl_Browser*>(control.widget)->textcolor(color); break;
  case ControlShape::kDropList: static_cast<Fl_Choice*>(control.widget)->textcolor(color); break;
  case ControlShape::kProgress: control.widget->selection_color(color); break;
  default: break;
  }
}

// Picture of a label or button. False if its file cannot be loaded.
bool loadPicture(const ControlWish& wish, Control& control) {
  if (wish.picture) {
    const Fl_RGB_Image image(wish.picture, wish.pictureWidth, wish.pictureHeight, 3);
    control.image.reset(const_cast<Fl_RGB_Image&>(image).copy());
  } else if (wish.pictureFile) {
    Fl_Shared_Image* image = Fl_Shared_Image::get(wish.pictureFile);
    if (!image || image->w() <= 0) return false;
    control.image.reset(image->copy(wish.pictureWidth, wish.pictureHeight));
    image->release();
  } else {
    return true;
  }
  control.widget->image(control.image.get());
  control.widget->align((wish.shape == ControlShape::kPush ? FL_ALIGN_CENTER : FL_ALIGN_LEFT) | FL_ALIGN_INSIDE |
                        FL_ALIGN_IMAGE_NEXT_TO_TEXT);
  return true;
}

bool addControl(const ControlWish& wish) {
  DialogFrame* frame = frameOf(wish.frame);
  if (!frame) return true;
  WidgetBox place = wish.place;
  place.y += frame->menuHeight();
  Fl_Group::current(nullptr);
  Fl_Widget* widget = makeControl(wish, place);
  widget->labelfont(dialogFont().face);
  widget->labelsize(dialogFont().size);
  if (!wish.takesFocus) widget->clear_visible_focus();
  frame->content->add(widget);
  Control& control = desk().controls[wish.widget];
  control = {widget, wish.frame, wish.shape, nullptr, wish.hint ? wish.hint : ""};
  if (!control.hint.empty()) {
    widget->tooltip(control.hint.c_str());
    widget->copy_label("");
  }
  applyColors(control, wish.background, wish.foreground);
  if (frame->shown()) frame->redraw();
  return loadPicture(wish, control);
}

void placeFrame(int number, const WidgetBox& b) {
  DialogFrame* frame = frameOf(number);
  if (frame) frame->resize(b.x, b.y, b.width, b.height + frame->menuHeight());
}

void showFrame(int number) {
  DialogFrame* frame = frameOf(number);
  if (!frame) return;
  if (frame->fixed) frame->size_range(frame->w(), frame->h(), frame->w(), frame->h());
  frame->show();
  frame->wait_for_expose();
}

void closeFrame(int number) {
  if (!frameOf(number)) return;
  frameOf(number)->hide();
  std::erase_if(desk().events, [number](const WidgetEvent& e) {
    const Control* control = controlOf(e.widget);
    return e.widget == number || (control && control->frame == number);
  });
  for (auto& [id, control] : desk().controls)
    if (control.frame == number && control.shape == ControlShape::kDraw)
      static_cast<DrawArea*>(control.widget)->release();
  desk().frames.erase(number);
  std::erase_if(desk().controls, [number](const auto& entry) { return entry.second.frame == number; });
  std::erase_if(desk().menus, [number](const auto& entry) { return entry.second.frame == number; });
  Fl::check();
}

void setText(int number, const char* text) {
  Control* control = controlOf(number);
  if (!control) return;
  if (control->shape == ControlShape::kLine || control->shape == ControlShape::kLines) {
    auto* input = static_cast<Fl_Input*>(control->widget);
    input->value(text);
    if (control->shape == ControlShape::kLines) input->position(input->size()); // the last line is seen
  } else {
    control->widget->copy_label(labelOf(text).c_str());
    control->widget->redraw();
  }
}

void setValue(int number, int value) {
  Control* control = controlOf(number);
  if (!control) return;
  switch (control->shape) {
  case ControlShape::kCheck:
  case ControlShape::kRadio: static_cast<Fl_Button*>(control->widget)->value(static_cast<char>(value)); break;
  case ControlShape::kList: {
    auto* list = static_cast<Fl_Browser*>(control->widget);
    if (value > 0) {
      list->value(value);
    } else {
      list->deselect();
    }
    break;
  }
  case ControlShape::kDropList: static_cast<Fl_Choice*>(control->widget)->value(value - 1); break;
  case ControlShape::kScale: static_cast<Fl_Slider*>(control->widget)->value(value); break;
  case ControlShape::kProgress:
    static_cast<Gauge*>(control->widget)->part = value;
    control->widget->redraw();
    break;
  default: break;
  }
}

void setState(int number, int state) {
  if (const auto menu = desk().menus.find(number); menu != desk().menus.end()) {
    DialogFrame* frame = frameOf(menu->second.frame);
    const int place = frame && frame->menu ? frame->menu->find_index(menu->second.path.c_str()) : -1;
    if (place >= 0)
      frame->menu->mode(place, state == kWidgetActive ? 0
                               : state == kWidgetGrey ? FL_MENU_INACTIVE
                                                      : FL_MENU_INVISIBLE);
    return;
  }
  Control* control = controlOf(number);
  if (!control) return;
  if (state == kWidgetActive) control->widget->activate();
  if (state == kWidgetGrey) control->widget->deactivate();
  if (state == kWidgetInvisible) {
    control->widget->hide();
  } else {
    control->widget->show();
  }
}

void setItemState(int number, int item, int state) {
  Control* control = controlOf(number);
  if (!control) return;
  if (control->shape == ControlShape::kDropList) {
    static_cast<Fl_Choice*>(control->widget)
        ->mode(item - 1, state == kWidgetActive ? 0
                         : state == kWidgetGrey ? FL_MENU_INACTIVE
                                                : FL_MENU_INVISIBLE);
  } else if (control->shape == ControlShape::kList) {
    auto* list = static_cast<Fl_Browser*>(control->widget);
    if (state == kWidgetInvisible) {
      list->hide(item);
    } else {
      list->show(item);
    }
  }
}

void setColors(int number, int background, int foreground) {
  if (DialogFrame* frame = frameOf(number)) {
    if (background != kNoWidgetColor) frame->color(colorOf(background));
    frame->redraw();
  } else if (const Control* control = controlOf(number)) {
    applyColors(*control, background, foreground);
    control->widget->redraw();
  }
}

void setCell(int number, int row, int column, const char* text, const CellStyle& style) {
  Control* control = controlOf(number);
  if (!control || control->shape != ControlShape::kTable) return;
  auto* sheet = static_cast<Sheet*>(control->widget);
  sheet->cell(row, column) = {text, style};
  sheet->redraw();
}

void setIcon(int number, const char* file) {
  DialogFrame* frame = frameOf(number);
  Fl_Shared_Image* image = frame ? Fl_Shared_Image::get(file) : nullptr;
  if (!image) return;
  const std::unique_ptr<Fl_Image> copy(image->copy());
  if (auto* rgb = dynamic_cast<Fl_RGB_Image*>(copy.get())) frame->icon(rgb);
  image->release();
}

void setFocus(int number) {
  if (Control* control = controlOf(number)) Fl::focus(control->widget);
}

unsigned long nativeId(int number) {
  if (DialogFrame* frame = frameOf(number)) return frame->shown() ? static_cast<unsigned long>(fl_xid(frame)) : 0;
  const Control* control = controlOf(number);
  if (!control || control->shape != ControlShape::kDraw) return 0;
  auto* area = static_cast<DrawArea*>(control->widget);
  return area->shown() ? static_cast<unsigned long>(fl_xid(area)) : 0;
}

WidgetEvent nextEvent(double seconds) {
  std::deque<WidgetEvent>& events = desk().events;
  if (events.empty()) Fl::wait(seconds);
  if (events.empty()) return {};
  WidgetEvent event = std::move(events.front());
  events.pop_front();
  return event;
}

void messageBox(const char* title, const char* text, bool) {
  fl_message_title(title);
  fl_message("%s", text);
}

bool ask(const char* title, const char* text, bool yesFirst, bool) { return askYesNo(title, text, yesFirst); }

bool chooseFile(const FileWish& wish, std::string* name) {
  Fl::option(Fl::OPTION_FNFC_USES_GTK, false); // the same dialog everywhere
  Fl_Native_File_Chooser chooser(wish.save ? Fl_Native_File_Chooser::BROWSE_SAVE_FILE
                                           : Fl_Native_File_Chooser::BROWSE_FILE);
  chooser.title(wish.title);
  chooser.filter(wish.mask);
  if (*wish.folder) chooser.directory(wish.folder);
  if (*wish.name) chooser.preset_file(wish.name);
  if (chooser.show() != 0 || !chooser.filename()) return false;
  *name = chooser.filename();
  return true;
}

constexpr WidgetSystem kSystem = {metrics,    setFont,  openFrame, addMenu,   addControl,   placeFrame, showFrame,
                                  closeFrame, setText,  setValue,  setState,  setItemState, setColors,  setCell,
                                  setIcon,    setFocus, nativeId,  nextEvent, messageBox,   ask,        chooseFile};

} // namespace

void quilla::fltk::putWidgetEvent(WidgetEvent event) {
  if (desk().events.size() < kMostEvents) desk().events.push_back(std::move(event));
}

extern "C" const quilla::WindowSystem* quillaWindowSystem();

extern "C" const quilla::WidgetSystem* quillaWidgetSystem() { return quillaWindowSystem() ? &kSystem : nullptr; }
