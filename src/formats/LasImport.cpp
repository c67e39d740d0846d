#include "formats/LasImport.h"

#include <cmath>
#include <cstring>
#include <map>
#include <set>


namespace petrodb::las {
namespace {

std::string Key(const std::string& name) {
  std::string s = name;
  for (char& c : s)
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  return s;
}

std::string List(const std::vector<std::string>& names) {
  std::string out;
  for (const auto& n : names) out += (out.empty() ? "" : ", ") + n;
  return out;
}

bool SameBits(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
  return std::memcmp(&a, &b, sizeof a) == 0;
}

}  // namespace

ImportPlan PlanImport(const File& file, const std::string& wellID, const std::vector<StoredCurve>& stored,
                      const std::function<bool(const std::string&)>& sameDepths, const double* storedNull) {
  ImportPlan plan;
  // Names a file and a key can carry, each once.
  std::vector<std::string> names;
  std::set<std::string> taken;
  for (std::size_t i = 0; i < file.curves.size(); ++i) {
    const std::string& original = file.curves[i].mnemonic;
    std::string name = StorableName(original);
    if (name.empty()) name = "CURVE" + std::to_string(i + 1);
    std::string free = name;
    for (int n = 2; taken.count(Key(free)); ++n) free = name + "_" + std::to_string(n);
    if (free != original)
      plan.notes.push_back("curve \"" + original + "\" stored as " + free +
                           (free != name ? " (another curve of the file has that name)"
                                         : " (a stored name holds no blank, '.', ':' or quote)"));
    taken.insert(Key(free));
    names.push_back(free);
  }

  std::map<std::string, StoredCurve> rows;                // by key
  std::map<std::string, std::vector<std::string>> users;  // depth key -> the curves it indexes
  for (const auto& s : stored) {
    rows[Key(s.name)] = s;
    if (Key(s.name) != Key(s.depthName)) users[Key(s.depthName)].push_back(s.name);
  }
  std::set<std::string> incoming(taken);
  incoming.erase(Key(names[0]));
  auto isDepth = [&](const std::string& key) {
    const auto it = rows.find(key);
    return it != rows.end() && Key(it->second.depthName) == key;
  };
  auto allReplaced = [&](const std::string& key) {
    for (const auto& u : users[key])
      if (!incoming.count(Key(u))) return false;
    return true;
  };
  auto freeName = [&](const std::string& base) {
    for (int n = 2;; ++n) {
      const std::string name = base + "_" + std::to_string(n);
      if (!rows.count(Key(name)) && !taken.count(Key(name))) {
        taken.insert(Key(name));
        return name;
      }
    }
  };
  auto kept = [&](const std::string& key) {
    std::vector<std::string> out;
    for (const auto& u : users[key])
      if (!incoming.count(Key(u))) out.push_back(u);
    return out;
  };

  // The index.
  const std::string indexKey = Key(names[0]);
  if (isDepth(indexKey)) {
    if (sameDepths(rows[indexKey].name)) {
      plan.sharedIndex = true;
      names[0] = rows[indexKey].name;  // the stored curves name it in its own spelling
    } else if (!allReplaced(indexKey)) {
      const std::string renamed = freeName(names[0]);
      plan.notes.push_back("the index " + names[0] + " is stored as " + renamed + ": the well's depth curve " +
                           names[0] + " indexes other curves (" + List(kept(indexKey)) + ") at other depths");
      names[0] = renamed;
    }
  }
  // The other curves: none takes the name of a depth curve that stored curves keep using.
  std::vector<std::string> replaced;
  for (std::size_t i = 1; i < names.size(); ++i) {
    const std::string key = Key(names[i]);
    if (isDepth(key) && !allReplaced(key)) {
      const std::string renamed = freeName(names[i]);
      plan.notes.push_back("curve " + names[i] + " is stored as " + renamed + ": the well's depth curve " + names[i] +
                           " indexes other curves (" + List(kept(key)) + ")");
      names[i] = renamed;
    } else if (rows.count(key)) {
      replaced.push_back(rows[key].name);
    }
  }
  if (!replaced.empty()) plan.notes.push_back("replaced the well's curves " + List(replaced));

  // One NULL per well: the file's NULL samples take the NULL of the curves the well keeps.
  std::set<std::string> final;
  for (const auto& n : names) final.insert(Key(n));
  bool keepsOthers = false;
  for (const auto& s : stored) keepsOthers = keepsOthers || !final.count(Key(s.name));
  const double fileNull = file.hasNull ? file.nullValue : -999.25;
  double null = fileNull;
  if (storedNull && keepsOthers && !SameBits(*storedNull, fileNull)) {
    null = *storedNull;
    plan.notes.push_back("the file's NULL " + FormatNumber(fileNull) + " is stored as the well's NULL " +
                         FormatNumber(null));
  }

  plan.log.WellID = wellID;
  plan.log.NullValue = null;
  for (std::size_t i = 0; i < file.curves.size(); ++i) {
    std::vector<double> values = file.curves[i].values;
    if (i > 0 && !SameBits(null, fileNull))
      for (double& v : values)
        if (file.IsNull(v)) v = null;
    plan.log.Curves.push_back(LogCurve{names[i], file.curves[i].unit, nullptr, std::move(values)});
  }
  // An index that no curve would use is dropped by the next load: keep it with a copy.
  if (file.curves.size() == 1 && (!plan.sharedIndex || kept(indexKey).empty())) {
    std::string copy = names[0] + "_INDEX";
    if (isDepth(Key(copy)) || taken.count(Key(copy))) copy = freeName(copy);
    plan.indexCopy = copy;
    plan.log.Curves.push_back(LogCurve{copy, file.curves[0].unit, nullptr, file.curves[0].values});
    plan.notes.push_back("the file holds only its index " + names[0] + "; a curve " + copy +
                         " of the same depths keeps it (a depth curve that no curve uses is dropped)");
  }
  plan.log.Link(std::vector<std::string>(plan.log.Curves.size(), names[0]));
  return plan;
}

std::vector<LasItemRecord> HeaderRows(const File& file, const ImportPlan& plan,
                                      const std::vector<LasItemRecord>& kept) {
  const std::string& well = plan.log.WellID;
  const std::string& index = plan.log.Curves.front().CurveName;
  std::vector<LasItemRecord> rows;
  auto add = [&](const char* section, const std::string& mnemonic, const std::string& unit,
                 const std::string& value, const std::string& description) {
    int order = 0;
    for (const auto& r : rows) order += r.ItemSection == section;
    rows.push_back({well, index, section, order, mnemonic, unit, value, description});
  };
  // Curves: those kept before under a shared index stay in their places (taking
  // the file's unit and description); the file's others follow in its order.
  std::vector<bool> placed(file.curves.size(), false);
  if (plan.sharedIndex) {
    for (const auto& k : kept) {
      if (k.ItemSection == "I") add("I", k.Mnemonic, k.Unit, k.ItemValue, k.Description);
      if (k.ItemSection != "C") continue;
      std::size_t i = 0;
      while (i < file.curves.size() && Key(plan.log.Curves[i].CurveName) != Key(k.Mnemonic)) ++i;
      if (i == file.curves.size()) {
        add("C", k.Mnemonic, k.Unit, k.ItemValue, k.Description);
      } else if (!placed[i]) {
        placed[i] = true;
        add("C", plan.log.Curves[i].CurveName, file.curves[i].unit, "", file.curves[i].description);
      }
    }
  }
  for (std::size_t i = 0; i < file.curves.size(); ++i)
    if (!placed[i]) add("C", plan.log.Curves[i].CurveName, file.curves[i].unit, "", file.curves[i].description);
  if (!plan.indexCopy.empty()) add("I", plan.indexCopy, file.curves[0].unit, "", "");
  for (const auto& item : file.well) add("W", item.mnemonic, item.unit, item.value, item.description);
  for (const auto& item : file.parameters) add("P", item.mnemonic, item.unit, item.value, item.description);
  return rows;
}

}  // namespace petrodb::las
