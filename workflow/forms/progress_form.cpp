#include "workflow/forms/progress_form.h"

#include <utility>

#include "resources/form_layouts.h"

namespace quorbind {

namespace {

ProgressView designTimeView() {
  ProgressView view;
  view.caption = layout::kProgress.caption;
  return view;
}

}  // namespace

frmProgBar::frmProgBar(UserInterface& ui) : ui_(ui), view_(designTimeView()) {}

void frmProgBar::setCaption(std::string caption) {
  view_.caption = std::move(caption);
  refresh();
}

void frmProgBar::setMaximum(std::int32_t maximum) {
  view_.maximum = maximum;
  refresh();
}

void frmProgBar::setValue(std::int32_t value) {
  view_.value = value;
  refresh();
}

void frmProgBar::setStatus(std::string status) {
  view_.status = std::move(status);
  refresh();
}

void frmProgBar::show() {
  shown_ = true;
  refresh();
}

void frmProgBar::hide() {
  if (std::exchange(shown_, false)) {
    ui_.hideProgress();
  }
}

void frmProgBar::unload() {
  shown_ = false;
  view_ = designTimeView();
  ui_.unloadProgress();
}

void frmProgBar::refresh() {
  if (shown_) {
    ui_.showProgress(view_);
  }
}

}  // namespace quorbind
