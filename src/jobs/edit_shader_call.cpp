#include "jobs/edit_shader_call.h"

#include <algorithm>
#include <span>
#include <vector>

#include "host/command/get_option.h"
#include "host/system/text.h"
#include "jobs/choose_shader.h"
#include "jobs/edit_shader_param.h"
#include "jobs/plugin.h"
#include "settings/number_list.h"
#include "settings/settings_store.h"
#include "shading/shader_params.h"

namespace orv {
namespace {

std::span<const std::string_view> WordsOf(ParamList list) {
  if (list == ParamList::Projection) return kProjectionWords;
  if (list == ParamList::Space) return kSpaceWords;
  return {};
}

// The list that a parameter offers; an empty one is typed.
ParamList ListOf(const ShaderParam& param) {
  if (param.Kind != ParamKind::String || param.Text.empty()) return ParamList::None;
  if (param.IsProjection) return ParamList::Projection;
  return param.IsSpace ? ParamList::Space : ParamList::None;
}

// The position of the word in any case; 0 when it isn't there.
int PositionOf(std::string_view word, std::span<const std::string_view> words) {
  const auto found = std::find_if(words.begin(), words.end(), [word](std::string_view one) {
    return host::EqualNoCase(one, word);
  });
  return found == words.end() ? 0 : static_cast<int>(found - words.begin());
}

// `word` is what the option of a list shows and changes.
int AddOption(CRhinoGetOption& get, ShaderParam& param, int& word) {
  param.ListKind = ListOf(param);
  if (param.ListKind != ParamList::None) {
    const std::span<const std::string_view> words = WordsOf(param.ListKind);
    word = PositionOf(param.Text, words);
    return get.AddCommandOptionList(param.Name, words, &word);
  }
  if (param.Kind == ParamKind::Color) {
    return get.AddCommandOptionColor(param.Name, &param.Color, param.Label);
  }
  if (param.Kind == ParamKind::Float && param.Count == 1) {
    return get.AddCommandOptionNumber(param.Name, &param.Values[0], param.Label,
                                      kNumberBounds.Minimum, kNumberBounds.Maximum);
  }
  return get.AddCommandOption(param.Name, ParamDisplayText(param));
}

// The options of one round: the shader, then each parameter.
class ShaderOptions {
 public:
  ShaderOptions(CRhinoGetOption& get, ShaderDraft& draft)
      : shader_(get.AddCommandOption("Shader", draft.Name)), words_(draft.Params.size()) {
    for (std::size_t i = 0; i < words_.size(); ++i) {
      draft.Params[i].OptionIndex = AddOption(get, draft.Params[i], words_[i]);
    }
  }

  bool IsShader(int option) const { return option == shader_; }

  // Takes up what was done with the option of a parameter, and asks for what is missing.
  void EditParam(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn, const CRhinoObject* object,
                 int option, ShaderDraft& draft) const {
    const auto param =
        std::find_if(draft.Params.begin(), draft.Params.end(),
                     [option](const ShaderParam& one) { return one.OptionIndex == option; });
    if (param == draft.Params.end()) return;
    const auto index = static_cast<std::size_t>(param - draft.Params.begin());
    if (param->ListKind == ParamList::None) {
      EditShaderParam(context, plugIn, object, draft, index);
    } else {
      param->Text = WordsOf(param->ListKind)[static_cast<std::size_t>(words_[index])];
    }
  }

 private:
  int shader_;
  // What the options of lists have chosen.
  std::vector<int> words_;
};

// Success when the user is done.
CommandResult EditDraft(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                        std::string_view kind, const CRhinoObject* object, ShaderDraft& draft) {
  CRhinoGetOption get(context);
  get.SetCommandPrompt("Orv Surface");
  get.AcceptNothing();
  for (;;) {
    get.ClearCommandOptions();
    const ShaderOptions options(get, draft);
    const CRhinoGet::Result result = get.GetOption();
    if (result == CRhinoGet::Result::nothing) return CommandResult::success;
    if (result == CRhinoGet::Result::cancel) return CommandResult::cancel;
    if (result != CRhinoGet::Result::option) return CommandResult::failure;
    if (options.IsShader(get.OptionIndex())) {
      const CommandResult chosen = ChooseShader(context, plugIn, kind, draft);
      if (chosen != CommandResult::success) return chosen;
    } else {
      options.EditParam(context, plugIn, object, get.OptionIndex(), draft);
    }
  }
}

}  // namespace

CommandResult EditShaderCall(CRhinoCommandContext& context, CSceneOutPlugIn& plugIn,
                             std::string_view kind, std::string& call, const CRhinoObject* object) {
  const auto gamma = static_cast<double>(StoredRhinoGamma(plugIn.UserStrings()));
  ShaderDraft draft(call, gamma);
  const CommandResult edited = EditDraft(context, plugIn, kind, object, draft);
  if (edited != CommandResult::success) return edited;
  call = host::EqualNoCase(draft.Name, "null") ? std::string() : draft.CallText();
  return edited;
}

}  // namespace orv
