// -LAYER: layers made, set current, turned on and off, coloured, given linetypes,
// frozen, thawed, locked and unlocked by name lists, until Enter.
#include <functional>
#include <memory>

#include "api/document.h"
#include "cmd/tables/layer_colors.h"
#include "cmd/tables/layer_records.h"
#include "cmd/tables/name_list.h"
#include "cmd/tables/prompt_answers.h"
#include "cmd/tables/table_commands.h"
#include "qx_color.h"
#include "qx_entities.h"
#include "qx_memory.h"
#include "qx_print.h"
#include "qx_variables.h"

namespace korva::cmd {
namespace {

constexpr wchar_t kOptions[] =
    L"? Make Set New ON OFF Color Ltype Freeze Thaw LOck Unlock"
    L" _ ? Make Set New ON OFF Color Ltype Freeze Thaw LOck Unlock";

bool sameLayer(const std::wstring& a, const std::wstring& b) {
  return upperName(a) == upperName(b);
}

bool makeCurrent(const LayerState& layer) {
  if (layer.frozen) {
    qxutPrintf(L"\nLayer \"%s\" is frozen and can't be made current.", layer.name.c_str());
    return false;
  }
  ResultBuffer node{};
  node.type = RTSTR;
  node.value.rstring = const_cast<wchar_t*>(layer.name.c_str());
  return qxedSetVar(L"CLAYER", &node) == RTNORM;
}

// Asks for a name list and gives the layers it names; RTNONE for Enter (unless there is
// a default), RTERROR when nothing matched (after saying so), RTCAN.
int askLayers(const std::wstring& prompt, const std::wstring& fallback,
              std::vector<LayerState>& layers) {
  std::wstring typed;
  int status = askText(prompt.c_str(), typed);
  if (status == RTNONE && !fallback.empty())
    typed = fallback;
  else if (status != RTNORM)
    return status;
  std::vector<std::wstring> patterns = splitNameList(typed);
  layers.clear();
  for (LayerState& layer : allLayers()) {
    if (matchesNameList(layer.name, patterns)) layers.push_back(std::move(layer));
  }
  if (layers.empty()) {
    qxutPrintf(L"\nNo layer matches \"%s\".", typed.c_str());
    return RTERROR;
  }
  return RTNORM;
}

void changeAll(const std::vector<LayerState>& layers,
               const std::function<void(LayerState&)>& change) {
  for (const LayerState& layer : layers) {
    if (!changeLayer(layer.name, change)) {
      qxutPrintf(L"\nLayer \"%s\" could not be changed.", layer.name.c_str());
    }
  }
}

// Options that change the layers of a name list the same way.
int changeNamed(const wchar_t* prompt, const std::function<void(LayerState&)>& change) {
  std::vector<LayerState> layers;
  int status = askLayers(prompt, L"", layers);
  if (status == RTNORM) changeAll(layers, change);
  return status;
}

int listOption() {
  std::wstring typed;
  int status = askText(L"\nEnter layer name(s) to list <*>: ", typed);
  if (status == RTCAN) return status;
  printLayerList(splitNameList(status == RTNORM ? typed : L"*"));
  return RTNORM;
}

int makeOption(bool create) {
  std::wstring current = currentLayerName();
  std::wstring prompt = create ? L"\nEnter name for new layer (becomes the current layer) <"
                               : L"\nEnter layer name to make current <";
  prompt += current + L">: ";
  std::wstring name;
  int status = askText(prompt.c_str(), name);
  if (status != RTNORM) return status;
  std::optional<LayerState> layer = findLayer(name);
  if (!layer && !create) {
    qxutPrintf(L"\nCannot find layer \"%s\".", name.c_str());
    return RTERROR;
  }
  if (!layer) {
    if (!isValidTableName(name)) {
      qxutPrintf(L"\nInvalid layer name \"%s\".", name.c_str());
      return RTERROR;
    }
    if (!createLayer(name) || !(layer = findLayer(name))) {
      qxutPrintf(L"\nLayer \"%s\" could not be made.", name.c_str());
      return RTERROR;
    }
  }
  makeCurrent(*layer);
  return RTNORM;
}

int newOption() {
  std::wstring typed;
  int status = askText(L"\nEnter name list for new layer(s): ", typed);
  if (status != RTNORM) return status;
  for (const std::wstring& name : splitNameList(typed)) {
    if (!isValidTableName(name)) {
      qxutPrintf(L"\nInvalid layer name \"%s\".", name.c_str());
    } else if (findLayer(name)) {
      qxutPrintf(L"\nLayer \"%s\" exists already.", name.c_str());
    } else if (!createLayer(name)) {
      qxutPrintf(L"\nLayer \"%s\" could not be made.", name.c_str());
    }
  }
  return RTNORM;
}

int offOption() {
  std::vector<LayerState> layers;
  int status = askLayers(L"\nEnter name list of layer(s) to turn off: ", L"", layers);
  if (status != RTNORM) return status;
  std::wstring current = currentLayerName();
  for (auto layer = layers.begin(); layer != layers.end(); ++layer) {
    if (!sameLayer(layer->name, current)) continue;
    // Drawing on a layer that is off shows nothing, so ask first unless the user is
    // an expert.
    bool turnOff = true;
    if (shortVariable(L"EXPERT", 0) == 0) {
      std::wstring question =
          L"\nReally turn off the current layer \"" + layer->name + L"\"? [Yes/No] <N>: ";
      if (askYesNo(question.c_str(), false, turnOff) == RTCAN) return RTCAN;
    }
    if (!turnOff) layers.erase(layer);
    break;
  }
  changeAll(layers, [](LayerState& layer) { layer.off = true; });
  return RTNORM;
}

int freezeOption() {
  std::vector<LayerState> layers;
  int status = askLayers(L"\nEnter name list of layer(s) to freeze: ", L"", layers);
  if (status != RTNORM) return status;
  std::wstring current = currentLayerName();
  for (auto layer = layers.begin(); layer != layers.end(); ++layer) {
    if (!sameLayer(layer->name, current)) continue;
    qxutPrintf(L"\nThe current layer \"%s\" can't be frozen.", layer->name.c_str());
    layers.erase(layer);
    break;
  }
  changeAll(layers, [](LayerState& layer) { layer.frozen = true; });
  return RTNORM;
}

// The colour typed, as an index or a true colour; RTERROR for a wrong one.
int askColor(int& index, std::optional<std::uint32_t>& trueColor) {
  std::wstring answer;
  int status = askKeyword(L"\nEnter color name or number (1-255) or [Truecolor]: ",
                          L"Truecolor _ Truecolor", answer, true);
  if (status != RTNORM && status != RTKWORD) return status;
  if (answer == L"Truecolor") {
    db::Database* database = api::currentDatabase();
    if (database && database->version() < "AC1018") {
      qxutPrintf(L"\nThis drawing's version can't hold true colors.");
      return RTERROR;
    }
    status = askText(L"\nEnter true color values (R,G,B): ", answer);
    if (status != RTNORM) return status;
    trueColor = parseTrueColor(answer);
    if (!trueColor) {
      qxutPrintf(L"\nInvalid true color \"%s\".", answer.c_str());
      return RTERROR;
    }
    index = QxCmEntityColor::lookUpACI(static_cast<std::uint8_t>(*trueColor >> 16),
                                       static_cast<std::uint8_t>(*trueColor >> 8),
                                       static_cast<std::uint8_t>(*trueColor));
    return RTNORM;
  }
  std::optional<int> parsed = parseColorIndex(answer);
  if (!parsed) {
    qxutPrintf(L"\nInvalid color \"%s\".", answer.c_str());
    return RTERROR;
  }
  index = *parsed;
  return RTNORM;
}

int colorOption() {
  int index = 7;
  std::optional<std::uint32_t> trueColor;
  int status = askColor(index, trueColor);
  if (status != RTNORM) return status;
  std::wstring current = currentLayerName();
  std::wstring prompt = L"\nEnter name list of layer(s) for color " +
                        describeColor(index, trueColor) + L" <" + current + L">: ";
  std::vector<LayerState> layers;
  status = askLayers(prompt, current, layers);
  if (status != RTNORM) return status;
  changeAll(layers, [&](LayerState& layer) {
    layer.color = index;
    layer.trueColor = trueColor;
  });
  return RTNORM;
}

// The loaded linetype's own spelling of the name.
std::optional<std::wstring> loadedLinetype(const std::wstring& name) {
  ResultBuffer* list = qxdbTblSearch(L"LTYPE", name.c_str(), 0);
  if (!list) return std::nullopt;
  std::wstring spelled = name;
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 2) spelled = node->value.rstring;
  }
  qxutRelRb(list);
  return spelled;
}

int linetypeOption() {
  std::wstring name;
  for (;;) {
    int status = askText(L"\nEnter a loaded linetype name or [?] <Continuous>: ", name);
    if (status == RTNONE)
      name = L"Continuous";
    else if (status != RTNORM)
      return status;
    if (name != L"?") break;
    printLoadedLinetypes({L"*"});
  }
  std::optional<std::wstring> linetype = loadedLinetype(name);
  if (!linetype) {
    qxutPrintf(L"\nLinetype \"%s\" is not loaded; load it with -LINETYPE.", name.c_str());
    return RTERROR;
  }
  std::wstring current = currentLayerName();
  std::wstring prompt =
      L"\nEnter name list of layer(s) for linetype \"" + *linetype + L"\" <" + current + L">: ";
  std::vector<LayerState> layers;
  int status = askLayers(prompt, current, layers);
  if (status != RTNORM) return status;
  changeAll(layers, [&](LayerState& layer) { layer.linetype = *linetype; });
  return RTNORM;
}

int runOption(const std::wstring& option) {
  if (option == L"?") return listOption();
  if (option == L"Make") return makeOption(true);
  if (option == L"Set") return makeOption(false);
  if (option == L"New") return newOption();
  if (option == L"OFF") return offOption();
  if (option == L"Freeze") return freezeOption();
  if (option == L"Color") return colorOption();
  if (option == L"Ltype") return linetypeOption();
  if (option == L"ON") {
    return changeNamed(L"\nEnter name list of layer(s) to turn on: ",
                       [](LayerState& layer) { layer.off = false; });
  }
  if (option == L"Thaw") {
    return changeNamed(L"\nEnter name list of layer(s) to thaw: ",
                       [](LayerState& layer) { layer.frozen = false; });
  }
  if (option == L"LOck") {
    return changeNamed(L"\nEnter name list of layer(s) to lock: ",
                       [](LayerState& layer) { layer.locked = true; });
  }
  if (option == L"Unlock") {
    return changeNamed(L"\nEnter name list of layer(s) to unlock: ",
                       [](LayerState& layer) { layer.locked = false; });
  }
  return RTERROR;
}

}  // namespace

void layerCommand() {
  qxutPrintf(L"\nCurrent layer: \"%s\"", currentLayerName().c_str());
  for (;;) {
    std::wstring option;
    int status = askKeyword(
        L"\nEnter an option [?/Make/Set/New/ON/OFF/Color/Ltype/Freeze/Thaw/LOck/Unlock]: ",
        kOptions, option);
    if (status != RTNORM) return;
    if (runOption(option) == RTCAN) return;
  }
}

}  // namespace korva::cmd
