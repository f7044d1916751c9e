#include "large_rule_data.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace zeph::bench {
namespace {

// A small fixed generator, so that the file is the same on every machine and every run.
class Numbers {
  public:
    int Next(int bound) {
        state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<int>((state_ >> 33) % static_cast<std::uint64_t>(bound));
    }

  private:
    std::uint64_t state_ = 20240611;
};

const char* const kWords[] = {"quick",  "steady", "hidden", "bright", "silent", "heavy",
                              "narrow", "humble", "fierce", "gentle", "hollow", "distant"};

class Writer {
  public:
    explicit Writer(std::ofstream& out) : out_(out) {}

    std::string Sentence(int words) {
        std::string text = "A";
        for (int i = 0; i < words; ++i) {
            text += ' ';
            text += kWords[numbers_.Next(12)];
        }
        return text + ".";
    }
    std::string Num(int bound) { return std::to_string(numbers_.Next(bound)); }
    std::string Page() { return "ZLB p." + Num(400); }

    void Tables() {
        out_ << "  <tabledata>\n";
        for (int t = 1; t <= 200; ++t) {
            out_ << "    <table name=\"Table " << t << "\">\n";
            out_ << "      <columnheading align=\"center\" width=\"" << 40 + numbers_.Next(100)
                 << "\">Roll</columnheading>\n      <columnheading>Result</columnheading>\n"
                 << "      <columnheading width=\"120\"/>\n";
            for (int r = 1; r <= 20; ++r)
                out_ << "      <row><column>" << r << "</column><column>" << Sentence(3)
                     << "</column><column>" << Num(50) << "</column></row>\n";
            out_ << "    </table>\n";
        }
        out_ << "  </tabledata>\n";
    }

    void CharacterTypes() {
        out_ << "  <charactertype>\n";
        for (int t = 1; t <= 100; ++t) {
            out_ << "    <type value=\"Character Type " << t << "\">\n";
            for (int n = 1; n <= 15; ++n) {
                out_
                    << "      <name value=\"Choice " << t << "-" << n << "\">\n"
                    << "        <bonuspts strength=\"" << Num(3) << "\" dexterity=\"" << Num(3)
                    << "\" mentalattr=\"" << Num(4) << "\" physicalattr=\"" << Num(4)
                    << "\" essence=\"" << Num(20) << "\" speed=\"" << Num(3) << "\"/>\n"
                    << "        <calculations lifepointcalc_multiplier=\"4\" lifepointcalc_adder=\""
                    << Num(20) << "\" endurancecalc_multiplier=\"3\" endurancecalc_adder=\""
                    << Num(10) << "\"/>\n"
                    << "        <creationpts attrpts=\"" << 10 + numbers_.Next(20)
                    << "\" qualitypts=\"" << Num(25) << "\" drawbackpts=\"10\" skillpts=\""
                    << 5 + numbers_.Next(30) << "\" metapts=\"" << Num(30) << "\" optskillptgen=\""
                    << Num(20) << "\"/>\n";
                if (n % 3 == 0) out_ << "        <dramapts points=\"" << Num(30) << "\"/>\n";
                if (n % 4 == 0)
                    out_ << "        <qualityrequired>Quality " << n << "-1&amp;&amp;Quality " << n
                         << "-2</qualityrequired>\n        <alternateform>Altform Type "
                         << 1 + numbers_.Next(60) << "</alternateform>\n";
                out_ << "      </name>\n";
            }
            out_ << "    </type>\n";
        }
        out_ << "  </charactertype>\n";
    }

    void SimpleList(const char* tag, const char* stem, int count, bool withNotes) {
        out_ << "  <" << tag << ">\n";
        for (int i = 1; i <= count; ++i) {
            out_ << "    <name value=\"" << stem << " " << i << "\"";
            if (withNotes)
                out_ << "><notes>" << Sentence(12) << "</notes></name>\n";
            else
                out_ << "/>\n";
        }
        out_ << "  </" << tag << ">\n";
    }

    void Qualities() {
        out_ << "  <qualities>\n";
        for (int t = 1; t <= 230; ++t) {
            out_ << "    <type value=\"Quality Type " << t << "\">\n";
            for (int n = 1; n <= 50; ++n) {
                int cost = numbers_.Next(9) - 4;
                out_ << "      <name value=\"Quality " << t << "-" << n << "\">\n"
                     << "        <costs maxlevel=\"" << 1 + numbers_.Next(6) << "\" creationcost=\""
                     << cost << "\" creationcost_highvalue=\"" << cost * 2 << "\" experiencecost=\""
                     << Num(5) << "\" experiencecost_highvalue=\"" << Num(8)
                     << "\"/>\n        <pagereference>" << Page() << "</pagereference>\n";
                if (n % 5 == 0)
                    out_ << "        <prerequisites>Quality " << t << "-" << n - 1
                         << ",1</prerequisites>\n";
                out_ << "        <notes>" << Sentence(14) << "</notes>\n";
                if (n % 7 == 0)
                    out_ << "        <bonusattr strength=\"" << Num(2) << "\" willpower=\""
                         << Num(2) << "\"/>\n";
                if (n % 3 == 0)
                    out_ << "        <bonuspts bonusskill=\"Intelligence&amp;&amp;" << Num(3)
                         << "\" bonuslifepts=\"" << Num(5) << "\"/>\n";
                out_ << "      </name>\n";
            }
            out_ << "    </type>\n";
        }
        out_ << "  </qualities>\n";
    }

    void Skills() {
        static const char* const kSkillTypes[] = {"Regular", "Special", "Cinematic"};
        out_ << "  <skills>\n";
        for (int c = 1; c <= 90; ++c) {
            out_ << "    <category value=\"Skill Category " << c << "\">\n";
            for (int n = 1; n <= 50; ++n) {
                out_ << "      <name value=\"Skill " << c << "-" << n << "\">\n"
                     << "        <pagereference>" << Page() << "</pagereference>\n"
                     << "        <type value=\"" << kSkillTypes[numbers_.Next(3)] << "\"/>\n"
                     << "        <notes>" << Sentence(10) << "</notes>\n";
                if (n % 6 == 0) out_ << "        <typelist>One,Two,Three</typelist>\n";
                out_ << "      </name>\n";
            }
            out_ << "    </category>\n";
        }
        out_ << "  </skills>\n";
    }

    void MartialStyles() {
        out_ << "  <martialstyles>\n";
        for (int s = 1; s <= 300; ++s) {
            out_ << "    <name value=\"Style " << s << "\">\n      <basicmoves>Move " << s
                 << "-1, Move " << s << "-2</basicmoves>\n";
            if (s % 2 == 0) out_ << "      <specialmoves>Maneuver 1, Maneuver 2</specialmoves>\n";
            out_ << "    </name>\n";
        }
        out_ << "  </martialstyles>\n";
    }

    void Metaphysics() {
        out_ << "  <metaphysics>\n";
        for (int t = 1; t <= 80; ++t) {
            out_ << "    <type value=\"Metaphysic Type " << t << "\">\n";
            // The first type is long: its list is built with one query per name.
            for (int n = 1; n <= (t == 1 ? 200 : 40); ++n) {
                out_ << "      <name value=\"Metaphysic " << t << "-" << n << "\">\n"
                     << "        <costs minlevel=\"" << Num(2) << "\" maxlevel=\"" << Num(10)
                     << "\" creationcost=\"" << 1 + numbers_.Next(5)
                     << "\" creationcost_highvalue=\"" << Num(8) << "\" experiencecost=\"" << Num(6)
                     << "\" experiencecost_highvalue=\"" << Num(9)
                     << "\"/>\n        <pagereference>" << Page() << "</pagereference>\n"
                     << "        <qualityprerequisite>Quality " << t
                     << "-1||Channeling</qualityprerequisite>\n"
                     << "        <notes>" << Sentence(16) << "</notes>\n";
                if (n % 4 == 0)
                    out_ << "        <metaprerequisite>Metaphysic " << t
                         << "-1,1</metaprerequisite>\n"
                         << "        <bonuspts bonusessence=\"" << Num(10) << "\"/>\n";
                if (n % 9 == 0) out_ << "        <altform>Altform Type " << t << "</altform>\n";
                out_ << "      </name>\n";
            }
            out_ << "    </type>\n";
        }
        out_ << "  </metaphysics>\n";
    }

    void Equipment() {
        out_ << "  <equipment>\n";
        for (int t = 1; t <= 90; ++t) {
            out_ << "    <type value=\"Equipment Type " << t << "\">\n";
            for (int n = 1; n <= 40; ++n) {
                out_ << "      <name value=\"Item " << t << "-" << n << "\">\n"
                     << "        <damage>d" << 4 + numbers_.Next(8) << " x " << Num(5)
                     << "</damage>\n"
                     << "        <weight>" << Num(40) << " lb</weight>\n"
                     << "        <period>Any</period>\n"
                     << "        <pagereference>" << Page() << "</pagereference>\n"
                     << "        <notes>" << Sentence(8) << "</notes>\n"
                     << "      </name>\n";
            }
            out_ << "    </type>\n";
        }
        out_ << "  </equipment>\n";
    }

    void Altforms() {
        out_ << "  <altforms>\n";
        for (int t = 1; t <= 80; ++t) {
            out_ << "    <type value=\"Altform Type " << t << "\">\n";
            for (int n = 1; n <= 20; ++n) {
                out_ << "      <name value=\"Altform " << t << "-" << n << "\">\n"
                     << "        <costs cost=\"" << Num(10) << "\" cursecost=\"" << Num(6)
                     << "\"/>\n"
                     << "        <attributes strength=\"" << Num(6) << "\" dexterity=\"" << Num(6)
                     << "\" constitution=\"" << Num(6) << "\" armorvalue=\"d"
                     << 4 + numbers_.Next(6)
                     << "\"/>\n        <calculations lifepointcalc_multiplier=\"4\" "
                        "lifepointcalc_adder=\""
                     << Num(20) << "\" speed_adder=\"" << Num(10) << "\"/>\n"
                     << "        <naturalattacks>" << Sentence(6) << "</naturalattacks>\n"
                     << "        <other>" << Sentence(6) << "</other>\n"
                     << "        <pagereference>" << Page() << "</pagereference>\n"
                     << "      </name>\n";
            }
            out_ << "    </type>\n";
        }
        out_ << "  </altforms>\n";
    }

  private:
    std::ofstream& out_;
    Numbers numbers_;
};

}  // namespace

void WriteLargeRuleData(const std::string& path) {
    // Written beside the target and renamed into place, so an interrupted run leaves no
    // half file that a later run would take for the real one.
    std::string partial = path + ".partial";
    {
        std::ofstream out(partial, std::ios::binary | std::ios::trunc);
        if (!out) throw std::runtime_error("cannot write " + partial);
        out << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
            << "<!-- Invented rule data for benchmarks; every name and number is made up. -->\n"
            << "<zephalondata books=\"ZLB\" fullref=\"Zephalon Large Benchmark Book\">\n";
        Writer writer(out);
        writer.Tables();
        writer.CharacterTypes();
        writer.SimpleList("concepts", "Concept", 400, false);
        writer.SimpleList("associations", "Association", 400, true);
        writer.Qualities();
        writer.Skills();
        writer.MartialStyles();
        writer.SimpleList("martialarts", "Maneuver", 300, false);
        writer.SimpleList("visualizations", "Visualization", 200, false);
        writer.Metaphysics();
        writer.Equipment();
        writer.Altforms();
        out << "</zephalondata>\n";
        if (!out) throw std::runtime_error("cannot write " + partial);
    }
    std::filesystem::rename(partial, path);
}

std::string LargeRuleDataPath() {
    static const std::string path = [] {
        std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe");
        std::filesystem::path dir = exe.parent_path().parent_path() / "bench-data";
        std::filesystem::create_directories(dir);
        // The name changes with the generator, so that a file written by an older one is not
        // reused.
        std::filesystem::path file = dir / "large-2.xml";
        if (!std::filesystem::exists(file)) WriteLargeRuleData(file.string());
        return file.string();
    }();
    return path;
}

std::string SampleRuleDataPath() {
    return std::string(ZEPHALON_SOURCE_DIR) + "/data/rules/sample.xml";
}

}  // namespace zeph::bench
