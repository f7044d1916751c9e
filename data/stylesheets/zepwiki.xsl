<?xml version="1.0" encoding="UTF-8"?>
<!--
  zepwiki.xsl - the character as MediaWiki markup, ready to paste into a
  campaign wiki page.

  Input: a Zephalon character file (root element "character").
  Tables use class "wikitable"; the styled texts keep their bold, italic,
  underline and colour. Text is not escaped: a name holding wiki markup
  acts as markup.
-->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:output method="text" encoding="UTF-8"/>

  <xsl:variable name="NL" select="'&#10;'"/>
  <xsl:variable name="CR" select="'&#13;'"/>
  <xsl:variable name="Q" select='"&apos;"'/>
  <xsl:variable name="upper" select="'ABCDEFGHIJKLMNOPQRSTUVWXYZ'"/>
  <xsl:variable name="lower" select="'abcdefghijklmnopqrstuvwxyz'"/>

  <xsl:template match="/">
    <xsl:apply-templates select="character"/>
  </xsl:template>

  <xsl:template match="character">
    <!-- lead line and identity table -->
    <xsl:call-template name="bold">
      <xsl:with-param name="s">
        <xsl:choose>
          <xsl:when test="normalize-space(@name) != ''"><xsl:value-of select="normalize-space(@name)"/></xsl:when>
          <xsl:otherwise>Unnamed character</xsl:otherwise>
        </xsl:choose>
      </xsl:with-param>
    </xsl:call-template>
    <xsl:if test="normalize-space(concept/@concept) != ''">
      <xsl:value-of select="concat(', ', normalize-space(concept/@concept))"/>
    </xsl:if>
    <xsl:value-of select="concat($NL, $NL)"/>

    <xsl:if test="player/@name[normalize-space(.) != ''] | concept/@concept[normalize-space(.) != '']
                  | charactertype/@*[normalize-space(.) != ''] | association[normalize-space(@name) != '' or normalize-space(.) != '']">
      <xsl:value-of select="concat('{| class=&quot;wikitable&quot;', $NL)"/>
      <xsl:call-template name="id-row"><xsl:with-param name="label" select="'Player'"/><xsl:with-param name="value" select="player/@name"/></xsl:call-template>
      <xsl:call-template name="id-row"><xsl:with-param name="label" select="'Concept'"/><xsl:with-param name="value" select="concept/@concept"/></xsl:call-template>
      <xsl:call-template name="id-row"><xsl:with-param name="label" select="'Character Type'"/><xsl:with-param name="value" select="charactertype/@type"/></xsl:call-template>
      <xsl:call-template name="id-row"><xsl:with-param name="label" select="'Choice'"/><xsl:with-param name="value" select="charactertype/@choice"/></xsl:call-template>
      <xsl:if test="normalize-space(association/@name) != '' or normalize-space(association) != ''">
        <xsl:value-of select="concat('|-', $NL, '! Association', $NL, '| ', normalize-space(association/@name))"/>
        <xsl:if test="normalize-space(association) != ''">
          <xsl:if test="normalize-space(association/@name) != ''"><xsl:text>&lt;br /&gt;</xsl:text></xsl:if>
          <xsl:call-template name="br"><xsl:with-param name="t" select="string(association)"/></xsl:call-template>
        </xsl:if>
        <xsl:value-of select="$NL"/>
      </xsl:if>
      <xsl:value-of select="concat('|}', $NL, $NL)"/>
    </xsl:if>

    <!-- attributes -->
    <xsl:value-of select="concat('== Attributes ==', $NL, '{| class=&quot;wikitable&quot;', $NL, '! Attribute !! Base !! Bonus !! Total', $NL)"/>
    <xsl:for-each select="strength | dexterity | constitution | intelligence | perception | willpower">
      <xsl:value-of select="concat('|-', $NL, '| ', translate(substring(name(), 1, 1), $lower, $upper), substring(name(), 2),
                                   ' || ', @base, ' || ')"/>
      <xsl:call-template name="signed"><xsl:with-param name="n" select="@bonus"/></xsl:call-template>
      <xsl:value-of select="concat(' || ', $Q, $Q, $Q, @total, $Q, $Q, $Q, $NL)"/>
    </xsl:for-each>
    <xsl:value-of select="concat('|}', $NL, $NL)"/>

    <xsl:value-of select="concat('== Secondary Attributes ==', $NL, '{| class=&quot;wikitable&quot;', $NL, '! Attribute !! Bonus !! Total', $NL)"/>
    <xsl:for-each select="lifepoints | endurance | speed | essence[normalize-space(@total) != '0'] | dramapoints">
      <xsl:text>|-&#10;| </xsl:text>
      <xsl:choose>
        <xsl:when test="self::lifepoints">Life Points</xsl:when>
        <xsl:when test="self::endurance">Endurance</xsl:when>
        <xsl:when test="self::speed">Speed</xsl:when>
        <xsl:when test="self::essence">Essence</xsl:when>
        <xsl:otherwise>Drama Points</xsl:otherwise>
      </xsl:choose>
      <xsl:text> || </xsl:text>
      <xsl:call-template name="signed"><xsl:with-param name="n" select="@bonus"/></xsl:call-template>
      <xsl:value-of select="concat(' || ', $Q, $Q, $Q, @total, @points, $Q, $Q, $Q, $NL)"/>
    </xsl:for-each>
    <xsl:value-of select="concat('|}', $NL)"/>
    <xsl:if test="normalize-space(extrastats) != ''">
      <xsl:value-of select="concat($Q, $Q, $Q, 'Pools:', $Q, $Q, $Q, ' ', normalize-space(extrastats), $NL)"/>
    </xsl:if>
    <xsl:value-of select="$NL"/>

    <!-- points -->
    <xsl:value-of select="concat('== Points and Experience ==', $NL, '{| class=&quot;wikitable&quot;', $NL,
                                 '! Attributes !! Qualities !! Drawbacks !! Skills !! Metaphysics !! XP unspent !! XP spent', $NL, '|-', $NL,
                                 '| ', charpoints/@attributes, ' || ', charpoints/@qualities, ' || ', charpoints/@drawbacks,
                                 ' || ', charpoints/@skills, ' || ', charpoints/@meta,
                                 ' || ', experience/@saved, ' || ', experience/@spent, $NL, '|}', $NL)"/>
    <xsl:choose>
      <xsl:when test="translate(characterinplay/@value, $upper, $lower) = 'yes'">''Character in play.''</xsl:when>
      <xsl:otherwise>''In creation.''</xsl:otherwise>
    </xsl:choose>
    <xsl:if test="translate(optionalpointsystem/@value, $upper, $lower) = 'yes'"> ''Optional skill point system.''</xsl:if>
    <xsl:if test="number(mentalbonus/@value) != 0 or number(physicalbonus/@value) != 0">
      <xsl:value-of select="concat(' Bonus points to place: ', mentalbonus/@value, ' mental, ', physicalbonus/@value, ' physical.')"/>
    </xsl:if>
    <xsl:value-of select="concat($NL, $NL)"/>

    <!-- lists; a drawback is a quality row with a negative cost -->
    <xsl:variable name="q" select="quality[not(starts-with(normalize-space(@col0), '--'))]"/>
    <xsl:if test="$q[not(number(@col2) &lt; 0)]">
      <xsl:call-template name="list">
        <xsl:with-param name="title" select="'Qualities'"/>
        <xsl:with-param name="what" select="'Quality'"/>
        <xsl:with-param name="all" select="quality"/>
        <xsl:with-param name="g" select="'q'"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:if test="$q[number(@col2) &lt; 0]">
      <xsl:call-template name="list">
        <xsl:with-param name="title" select="'Drawbacks'"/>
        <xsl:with-param name="what" select="'Drawback'"/>
        <xsl:with-param name="all" select="quality"/>
        <xsl:with-param name="g" select="'d'"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:call-template name="list">
      <xsl:with-param name="title" select="'Skills'"/>
      <xsl:with-param name="what" select="'Skill'"/>
      <xsl:with-param name="all" select="skill"/>
      <xsl:with-param name="typed" select="true()"/>
    </xsl:call-template>
    <xsl:call-template name="list">
      <xsl:with-param name="title" select="'Metaphysics'"/>
      <xsl:with-param name="what" select="'Metaphysic'"/>
      <xsl:with-param name="all" select="meta"/>
    </xsl:call-template>
    <xsl:call-template name="moves">
      <xsl:with-param name="title" select="'Martial Maneuvers'"/>
      <xsl:with-param name="what" select="'Maneuver'"/>
      <xsl:with-param name="moves" select="martialmaneuver"/>
    </xsl:call-template>
    <xsl:call-template name="moves">
      <xsl:with-param name="title" select="'Visualizations'"/>
      <xsl:with-param name="what" select="'Visualization'"/>
      <xsl:with-param name="moves" select="visualization"/>
    </xsl:call-template>

    <!-- description -->
    <xsl:variable name="desc" select="description/@*[normalize-space(.) != '']"/>
    <xsl:if test="$desc">
      <xsl:value-of select="concat('== Description ==', $NL, '{| class=&quot;wikitable&quot;', $NL)"/>
      <xsl:for-each select="$desc">
        <xsl:value-of select="concat('|-', $NL, '! ', translate(substring(name(), 1, 1), $lower, $upper), substring(name(), 2), $NL, '| ', normalize-space(.), $NL)"/>
      </xsl:for-each>
      <xsl:value-of select="concat('|}', $NL, $NL)"/>
    </xsl:if>

    <xsl:apply-templates select="notes | history | contacts | altforms | equipment | journal"/>

    <xsl:value-of select="concat('&lt;small&gt;', @ZephalonVersion)"/>
    <xsl:if test="normalize-space(@LastChange) != ''"><xsl:value-of select="concat(', saved ', @LastChange)"/></xsl:if>
    <xsl:value-of select="concat('&lt;/small&gt;', $NL)"/>
  </xsl:template>

  <!-- s in bold marks; an apostrophe at either end would merge with them. -->
  <xsl:template name="bold">
    <xsl:param name="s"/>
    <xsl:value-of select="concat($Q, $Q, $Q)"/>
    <xsl:if test="starts-with($s, $Q)">&lt;nowiki/&gt;</xsl:if>
    <xsl:value-of select="$s"/>
    <xsl:if test="substring($s, string-length($s)) = $Q">&lt;nowiki/&gt;</xsl:if>
    <xsl:value-of select="concat($Q, $Q, $Q)"/>
  </xsl:template>

  <xsl:template name="id-row">
    <xsl:param name="label"/>
    <xsl:param name="value"/>
    <xsl:if test="normalize-space($value) != ''">
      <xsl:value-of select="concat('|-', $NL, '! ', $label, $NL, '| ', normalize-space($value), $NL)"/>
    </xsl:if>
  </xsl:template>

  <xsl:template name="signed">
    <xsl:param name="n"/>
    <xsl:choose>
      <xsl:when test="number($n) &gt; 0 and not(starts-with(normalize-space($n), '+'))">
        <xsl:value-of select="concat('+', normalize-space($n))"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$n"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- ======================================================= the lists -->

  <xsl:template name="list">
    <xsl:param name="title"/>
    <xsl:param name="what"/>
    <xsl:param name="all"/>
    <xsl:param name="g" select="'all'"/>
    <xsl:param name="typed" select="false()"/>
    <xsl:variable name="rows" select="$all[not(starts-with(normalize-space(@col0), '--'))]
                                      [$g = 'all' or ($g = 'd') = (number(@col2) &lt; 0)]"/>
    <xsl:if test="$rows">
      <xsl:variable name="type" select="$typed and boolean($rows[normalize-space(@col6) != ''])"/>
      <xsl:variable name="refs" select="boolean($rows[normalize-space(@col5) != ''])"/>
      <xsl:value-of select="concat('== ', $title, ' ==', $NL, '{| class=&quot;wikitable&quot;', $NL, '! ', $what)"/>
      <xsl:if test="$type"> !! Type</xsl:if>
      <xsl:text> !! Level !! Cost !! XP</xsl:text>
      <xsl:if test="$refs"> !! Page</xsl:if>
      <xsl:value-of select="concat(' !! Notes', $NL)"/>
      <xsl:for-each select="$all">
        <xsl:choose>
          <xsl:when test="starts-with(normalize-space(@col0), '--')">
            <xsl:variable name="show"><xsl:call-template name="show-sep"><xsl:with-param name="g" select="$g"/></xsl:call-template></xsl:variable>
            <xsl:if test="$show = 'y'">
              <xsl:variable name="label"><xsl:call-template name="sep-label"/></xsl:variable>
              <xsl:value-of select="concat('|-', $NL, '! colspan=&quot;', 5 + number($type) + number($refs), '&quot; style=&quot;text-align:left&quot; | ')"/>
              <xsl:value-of select="$label"/>
              <xsl:value-of select="$NL"/>
            </xsl:if>
          </xsl:when>
          <xsl:when test="$g = 'all' or ($g = 'd') = (number(@col2) &lt; 0)">
            <xsl:value-of select="concat('|-', $NL, '| ')"/>
            <xsl:call-template name="bold">
              <xsl:with-param name="s"><xsl:call-template name="pretty-name"/></xsl:with-param>
            </xsl:call-template>
            <xsl:if test="$type"><xsl:value-of select="concat(' || ', @col6)"/></xsl:if>
            <xsl:value-of select="concat(' || ', @col1, ' || ', @col2, ' || ', @col3)"/>
            <xsl:if test="$refs"><xsl:value-of select="concat(' || ', @col5)"/></xsl:if>
            <xsl:text> || </xsl:text>
            <xsl:call-template name="br"><xsl:with-param name="t" select="string(.)"/></xsl:call-template>
            <xsl:value-of select="$NL"/>
          </xsl:when>
        </xsl:choose>
      </xsl:for-each>
      <xsl:value-of select="concat('|}', $NL, $NL)"/>
    </xsl:if>
  </xsl:template>

  <!-- See zephtml.xsl: a separator is drawn ("y") only inside its group. -->
  <xsl:template name="show-sep">
    <xsl:param name="g" select="'all'"/>
    <xsl:variable name="n" select="name()"/>
    <xsl:variable name="next" select="following-sibling::*[name() = $n][not(starts-with(normalize-space(@col0), '--'))][1]"/>
    <xsl:variable name="prev" select="preceding-sibling::*[name() = $n][not(starts-with(normalize-space(@col0), '--'))]
                                      [$g = 'all' or ($g = 'd') = (number(@col2) &lt; 0)]"/>
    <xsl:if test="$next and ($g = 'all' or ($g = 'd') = (number($next/@col2) &lt; 0))
                  and (translate(normalize-space(@col0), '-', '') != ''
                       or ($prev and not(starts-with(normalize-space(following-sibling::*[1]/@col0), '--'))))">y</xsl:if>
  </xsl:template>

  <xsl:template name="sep-label">
    <xsl:param name="s" select="normalize-space(@col0)"/>
    <xsl:choose>
      <xsl:when test="starts-with($s, '-')">
        <xsl:call-template name="sep-label"><xsl:with-param name="s" select="normalize-space(substring($s, 2))"/></xsl:call-template>
      </xsl:when>
      <xsl:when test="substring($s, string-length($s)) = '-'">
        <xsl:call-template name="sep-label"><xsl:with-param name="s" select="normalize-space(substring($s, 1, string-length($s) - 1))"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$s"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- "Guns(Handgun)" is stored without a blank before the sub-type. -->
  <xsl:template name="pretty-name">
    <xsl:param name="s" select="normalize-space(@col0)"/>
    <xsl:variable name="before" select="substring-before($s, '(')"/>
    <xsl:choose>
      <xsl:when test="$before != '' and substring($before, string-length($before)) != ' '">
        <xsl:value-of select="concat($before, ' (', substring-after($s, '('))"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$s"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- Stored last row first, so walked backwards; "*" marks a basic move,
       shown bold as in the program. -->
  <xsl:template name="moves">
    <xsl:param name="title"/>
    <xsl:param name="what"/>
    <xsl:param name="moves"/>
    <xsl:if test="$moves">
      <xsl:value-of select="concat('== ', $title, ' ==', $NL, '{| class=&quot;wikitable&quot;', $NL, '! ', $what, ' !! Level !! XP', $NL)"/>
      <xsl:for-each select="$moves">
        <xsl:sort select="position()" data-type="number" order="descending"/>
        <xsl:value-of select="concat('|-', $NL, '| ')"/>
        <xsl:choose>
          <xsl:when test="contains(@name, '*')">
            <xsl:call-template name="bold"><xsl:with-param name="s" select="normalize-space(translate(@name, '*', ''))"/></xsl:call-template>
            <xsl:text> || </xsl:text>
            <xsl:call-template name="bold"><xsl:with-param name="s" select="@value"/></xsl:call-template>
          </xsl:when>
          <xsl:otherwise><xsl:value-of select="concat(normalize-space(@name), ' || ', @value)"/></xsl:otherwise>
        </xsl:choose>
        <xsl:value-of select="concat(' || ', @xps, $NL)"/>
      </xsl:for-each>
      <xsl:value-of select="concat('|}', $NL)"/>
      <xsl:if test="$moves[contains(@name, '*')]">
        <xsl:value-of select="concat($Q, $Q, 'Bold: basic move of the style.', $Q, $Q, $NL)"/>
      </xsl:if>
      <xsl:value-of select="$NL"/>
    </xsl:if>
  </xsl:template>

  <!-- ===================================================== styled text -->

  <xsl:template match="notes | history | contacts | altforms | equipment | journal">
    <xsl:if test="sr[string(.) != ''] or p[string(.) != '']">
      <xsl:text>== </xsl:text>
      <xsl:choose>
        <xsl:when test="self::notes">Notes</xsl:when>
        <xsl:when test="self::history">History</xsl:when>
        <xsl:when test="self::contacts">Contacts</xsl:when>
        <xsl:when test="self::altforms">Alternate Forms</xsl:when>
        <xsl:when test="self::equipment">Equipment</xsl:when>
        <xsl:otherwise>Journal</xsl:otherwise>
      </xsl:choose>
      <xsl:value-of select="concat(' ==', $NL)"/>
      <xsl:choose>
        <xsl:when test="sr"><xsl:apply-templates select="sr"/></xsl:when>
        <xsl:otherwise>
          <xsl:for-each select="p">
            <xsl:if test="position() != 1"><xsl:value-of select="concat('&lt;br /&gt;', $NL)"/></xsl:if>
            <xsl:value-of select="."/>
          </xsl:for-each>
        </xsl:otherwise>
      </xsl:choose>
      <xsl:value-of select="concat($NL, $NL)"/>
    </xsl:if>
  </xsl:template>

  <!-- A style run. Bold and italic marks do not reach past a line end,
       so a run with them is written line by line; other runs keep their
       tags across the <br />s. -->
  <xsl:template match="sr">
    <xsl:variable name="t">
      <xsl:call-template name="lf"><xsl:with-param name="t" select="string(.)"/></xsl:call-template>
    </xsl:variable>
    <xsl:variable name="c" select="normalize-space(@c)"/>
    <xsl:variable name="coloured" select="string-length($c) = 7 and starts-with($c, '#') and $c != '#000000'
                                          and translate(substring($c, 2), '0123456789ABCDEFabcdef', '') = ''"/>
    <xsl:variable name="u" select="translate(@u, 'T', 't') = 't'"/>
    <xsl:choose>
      <!-- a run without text stands for a line end, as on loading -->
      <xsl:when test="not(node())"><xsl:value-of select="concat('&lt;br /&gt;', $NL)"/></xsl:when>
      <xsl:when test="translate(@b, 'T', 't') = 't' or translate(@i, 'T', 't') = 't'">
        <xsl:call-template name="run-lines"><xsl:with-param name="t" select="string($t)"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise>
        <xsl:if test="$coloured"><xsl:value-of select="concat('&lt;span style=&quot;color:', $c, '&quot;&gt;')"/></xsl:if>
        <xsl:if test="$u">&lt;u&gt;</xsl:if>
        <xsl:call-template name="join-br">
          <xsl:with-param name="t" select="string($t)"/>
          <xsl:with-param name="br" select="concat('&lt;br /&gt;', $NL)"/>
        </xsl:call-template>
        <xsl:if test="$u">&lt;/u&gt;</xsl:if>
        <xsl:if test="$coloured">&lt;/span&gt;</xsl:if>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- The lines of a marked run, each through "segment", with <br />
       between them. A run of many lines is split near its middle line end
       first, to keep the recursion shallow. -->
  <xsl:template name="run-lines">
    <xsl:param name="t"/>
    <xsl:param name="first" select="true()"/>
    <xsl:param name="last" select="true()"/>
    <xsl:variable name="right" select="substring($t, floor(string-length($t) div 2) + 1)"/>
    <xsl:choose>
      <xsl:when test="not(contains($t, $NL))">
        <xsl:call-template name="segment">
          <xsl:with-param name="s" select="$t"/>
          <xsl:with-param name="first" select="$first"/>
          <xsl:with-param name="last" select="$last"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:when test="string-length($t) - string-length(translate($t, $NL, '')) &gt; 40 and contains($right, $NL)">
        <xsl:variable name="cut" select="string-length($t) - string-length(substring-after($right, $NL))"/>
        <xsl:call-template name="run-lines">
          <xsl:with-param name="t" select="substring($t, 1, $cut - 1)"/>
          <xsl:with-param name="first" select="$first"/>
          <xsl:with-param name="last" select="false()"/>
        </xsl:call-template>
        <xsl:value-of select="concat('&lt;br /&gt;', $NL)"/>
        <xsl:call-template name="run-lines">
          <xsl:with-param name="t" select="substring($t, $cut + 1)"/>
          <xsl:with-param name="first" select="false()"/>
          <xsl:with-param name="last" select="$last"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise>
        <xsl:call-template name="segment">
          <xsl:with-param name="s" select="substring-before($t, $NL)"/>
          <xsl:with-param name="first" select="$first"/>
          <xsl:with-param name="last" select="false()"/>
        </xsl:call-template>
        <xsl:value-of select="concat('&lt;br /&gt;', $NL)"/>
        <xsl:call-template name="run-lines">
          <xsl:with-param name="t" select="substring-after($t, $NL)"/>
          <xsl:with-param name="first" select="false()"/>
          <xsl:with-param name="last" select="$last"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- One line's worth of a run in its marks. Apostrophes that would run
       into the bold or italic marks (a neighbouring run's marks, or an
       apostrophe in the text) are kept apart with <nowiki/>. -->
  <xsl:template name="segment">
    <xsl:param name="s"/>
    <xsl:param name="first"/>
    <xsl:param name="last"/>
    <xsl:variable name="b" select="translate(@b, 'T', 't') = 't'"/>
    <xsl:variable name="i" select="translate(@i, 'T', 't') = 't'"/>
    <xsl:variable name="u" select="translate(@u, 'T', 't') = 't'"/>
    <xsl:variable name="c" select="normalize-space(@c)"/>
    <xsl:variable name="coloured" select="string-length($c) = 7 and starts-with($c, '#') and $c != '#000000'
                                          and translate(substring($c, 2), '0123456789ABCDEFabcdef', '') = ''"/>
    <xsl:variable name="marks" select="concat(substring(concat($Q, $Q, $Q), 1, 3 * number($b)), substring(concat($Q, $Q), 1, 2 * number($i)))"/>
    <xsl:choose>
      <xsl:when test="normalize-space($s) = ''"><xsl:value-of select="$s"/></xsl:when>
      <xsl:otherwise>
        <xsl:variable name="prev" select="preceding-sibling::sr[1]"/>
        <xsl:variable name="next" select="following-sibling::sr[1]"/>
        <xsl:if test="$first and $marks != '' and $prev
                      and (substring($prev, string-length($prev)) = $Q
                           or (translate($prev/@b, 'T', 't') = 't' or translate($prev/@i, 'T', 't') = 't')
                              and substring($prev, string-length($prev)) != $NL)">&lt;nowiki/&gt;</xsl:if>
        <xsl:if test="$coloured"><xsl:value-of select="concat('&lt;span style=&quot;color:', $c, '&quot;&gt;')"/></xsl:if>
        <xsl:if test="$u">&lt;u&gt;</xsl:if>
        <xsl:value-of select="$marks"/>
        <xsl:if test="$marks != '' and starts-with($s, $Q)">&lt;nowiki/&gt;</xsl:if>
        <xsl:value-of select="$s"/>
        <xsl:if test="$marks != '' and substring($s, string-length($s)) = $Q">&lt;nowiki/&gt;</xsl:if>
        <xsl:value-of select="$marks"/>
        <xsl:if test="$u">&lt;/u&gt;</xsl:if>
        <xsl:if test="$coloured">&lt;/span&gt;</xsl:if>
        <xsl:if test="$last and $marks != '' and $next and starts-with($next, $Q)">&lt;nowiki/&gt;</xsl:if>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- CR LF and lone CR become LF. Long texts are halved rather than
       walked, to keep the recursion shallow for journals of any length. -->
  <xsl:template name="lf">
    <xsl:param name="t"/>
    <xsl:choose>
      <xsl:when test="not(contains($t, $CR))"><xsl:value-of select="$t"/></xsl:when>
      <xsl:when test="string-length($t) &gt; 400">
        <xsl:variable name="m0" select="floor(string-length($t) div 2)"/>
        <!-- never cut between the CR and LF of one line end -->
        <xsl:variable name="m" select="$m0 + number(substring($t, $m0, 1) = $CR)"/>
        <xsl:call-template name="lf"><xsl:with-param name="t" select="substring($t, 1, $m)"/></xsl:call-template>
        <xsl:call-template name="lf"><xsl:with-param name="t" select="substring($t, $m + 1)"/></xsl:call-template>
      </xsl:when>
      <xsl:when test="contains($t, concat($CR, $NL))">
        <xsl:value-of select="translate(substring-before($t, concat($CR, $NL)), $CR, $NL)"/>
        <xsl:value-of select="$NL"/>
        <xsl:call-template name="lf"><xsl:with-param name="t" select="substring-after($t, concat($CR, $NL))"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="translate($t, $CR, $NL)"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- Line ends inside a table cell become <br />. -->
  <xsl:template name="br">
    <xsl:param name="t"/>
    <xsl:variable name="n"><xsl:call-template name="lf"><xsl:with-param name="t" select="$t"/></xsl:call-template></xsl:variable>
    <xsl:call-template name="join-br"><xsl:with-param name="t" select="string($n)"/></xsl:call-template>
  </xsl:template>

  <!-- Each LF of t replaced by br; halved like "lf" above. -->
  <xsl:template name="join-br">
    <xsl:param name="t"/>
    <xsl:param name="br" select="'&lt;br /&gt;'"/>
    <xsl:choose>
      <xsl:when test="not(contains($t, $NL))"><xsl:value-of select="$t"/></xsl:when>
      <xsl:when test="string-length($t) &gt; 400">
        <xsl:variable name="m" select="floor(string-length($t) div 2)"/>
        <xsl:call-template name="join-br">
          <xsl:with-param name="t" select="substring($t, 1, $m)"/>
          <xsl:with-param name="br" select="$br"/>
        </xsl:call-template>
        <xsl:call-template name="join-br">
          <xsl:with-param name="t" select="substring($t, $m + 1)"/>
          <xsl:with-param name="br" select="$br"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise>
        <xsl:value-of select="concat(substring-before($t, $NL), $br)"/>
        <xsl:call-template name="join-br">
          <xsl:with-param name="t" select="substring-after($t, $NL)"/>
          <xsl:with-param name="br" select="$br"/>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

</xsl:stylesheet>
