<?xml version="1.0" encoding="UTF-8"?>
<!--
  zeptext.xsl - plain text character sheet.

  Input: a Zephalon character file (root element "character").
  Lines stay within 78 columns where the data allows, so the sheet reads in
  any editor, mails well and prints in a monospaced font. Long names push
  their row onto a second line rather than being cut.
-->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:output method="text" encoding="UTF-8"/>

  <xsl:variable name="W" select="78"/>
  <xsl:variable name="NL" select="'&#10;'"/>
  <xsl:variable name="CR" select="'&#13;'"/>
  <xsl:variable name="upper" select="'ABCDEFGHIJKLMNOPQRSTUVWXYZ'"/>
  <xsl:variable name="lower" select="'abcdefghijklmnopqrstuvwxyz'"/>
  <xsl:variable name="sp" select="'                                                                                '"/>
  <xsl:variable name="eq" select="'================================================================================'"/>
  <xsl:variable name="dash" select="'--------------------------------------------------------------------------------'"/>

  <xsl:template match="/">
    <xsl:apply-templates select="character"/>
  </xsl:template>

  <xsl:template match="character">
    <xsl:call-template name="header"/>
    <xsl:call-template name="attributes"/>
    <xsl:call-template name="points"/>

    <xsl:variable name="q" select="quality[not(starts-with(normalize-space(@col0), '--'))]"/>
    <xsl:if test="$q[not(number(@col2) &lt; 0)]">
      <xsl:call-template name="list">
        <xsl:with-param name="title" select="'QUALITIES'"/>
        <xsl:with-param name="what" select="'Quality'"/>
        <xsl:with-param name="all" select="quality"/>
        <xsl:with-param name="g" select="'q'"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:if test="$q[number(@col2) &lt; 0]">
      <xsl:call-template name="list">
        <xsl:with-param name="title" select="'DRAWBACKS'"/>
        <xsl:with-param name="what" select="'Drawback'"/>
        <xsl:with-param name="all" select="quality"/>
        <xsl:with-param name="g" select="'d'"/>
      </xsl:call-template>
    </xsl:if>
    <xsl:call-template name="list">
      <xsl:with-param name="title" select="'SKILLS'"/>
      <xsl:with-param name="what" select="'Skill'"/>
      <xsl:with-param name="all" select="skill"/>
      <xsl:with-param name="typed" select="true()"/>
    </xsl:call-template>
    <xsl:call-template name="list">
      <xsl:with-param name="title" select="'METAPHYSICS'"/>
      <xsl:with-param name="what" select="'Metaphysic'"/>
      <xsl:with-param name="all" select="meta"/>
    </xsl:call-template>

    <xsl:call-template name="moves">
      <xsl:with-param name="title" select="'MARTIAL MANEUVERS'"/>
      <xsl:with-param name="what" select="'Maneuver'"/>
      <xsl:with-param name="moves" select="martialmaneuver"/>
    </xsl:call-template>
    <xsl:call-template name="moves">
      <xsl:with-param name="title" select="'VISUALIZATIONS'"/>
      <xsl:with-param name="what" select="'Visualization'"/>
      <xsl:with-param name="moves" select="visualization"/>
    </xsl:call-template>

    <xsl:call-template name="description"/>
    <xsl:apply-templates select="notes | history | contacts | altforms | equipment | journal"/>

    <xsl:value-of select="concat(substring($dash, 1, $W), $NL)"/>
    <xsl:value-of select="@ZephalonVersion"/>
    <xsl:if test="normalize-space(@LastChange) != ''">
      <xsl:value-of select="concat(' | saved ', @LastChange)"/>
    </xsl:if>
    <xsl:if test="normalize-space(@books) != ''">
      <xsl:value-of select="concat(' | books: ', @books)"/>
    </xsl:if>
    <xsl:value-of select="$NL"/>
  </xsl:template>

  <!-- ========================================================== header -->

  <xsl:template name="header">
    <xsl:variable name="name">
      <xsl:choose>
        <xsl:when test="normalize-space(@name) != ''"><xsl:value-of select="normalize-space(@name)"/></xsl:when>
        <xsl:otherwise>Unnamed character</xsl:otherwise>
      </xsl:choose>
    </xsl:variable>
    <xsl:variable name="rule" select="substring($eq, 1, $W)"/>
    <xsl:value-of select="concat($rule, $NL, $name, $NL, $rule, $NL)"/>
    <xsl:call-template name="labelled"><xsl:with-param name="label" select="'Player'"/><xsl:with-param name="value" select="player/@name"/></xsl:call-template>
    <xsl:call-template name="labelled"><xsl:with-param name="label" select="'Concept'"/><xsl:with-param name="value" select="concept/@concept"/></xsl:call-template>
    <xsl:call-template name="labelled">
      <xsl:with-param name="label" select="'Type'"/>
      <xsl:with-param name="value">
        <xsl:value-of select="charactertype/@type"/>
        <xsl:if test="normalize-space(charactertype/@type) != '' and normalize-space(charactertype/@choice) != ''"> / </xsl:if>
        <xsl:value-of select="charactertype/@choice"/>
      </xsl:with-param>
    </xsl:call-template>
    <xsl:call-template name="labelled"><xsl:with-param name="label" select="'Association'"/><xsl:with-param name="value" select="association/@name"/></xsl:call-template>
    <xsl:if test="normalize-space(association) != ''">
      <xsl:value-of select="substring($sp, 1, 14)"/>
      <xsl:call-template name="wrap">
        <xsl:with-param name="t" select="normalize-space(association)"/>
        <xsl:with-param name="w" select="$W - 14"/>
        <xsl:with-param name="indent" select="14"/>
      </xsl:call-template>
      <xsl:value-of select="$NL"/>
    </xsl:if>
    <xsl:value-of select="$NL"/>
  </xsl:template>

  <!-- "Label:" in a 14 column gutter, then the value; empty values are left out. -->
  <xsl:template name="labelled">
    <xsl:param name="label"/>
    <xsl:param name="value"/>
    <xsl:if test="normalize-space($value) != ''">
      <xsl:call-template name="left">
        <xsl:with-param name="v" select="concat($label, ':')"/>
        <xsl:with-param name="w" select="14"/>
      </xsl:call-template>
      <xsl:call-template name="wrap">
        <xsl:with-param name="t" select="normalize-space($value)"/>
        <xsl:with-param name="w" select="$W - 14"/>
        <xsl:with-param name="indent" select="14"/>
      </xsl:call-template>
      <xsl:value-of select="$NL"/>
    </xsl:if>
  </xsl:template>

  <xsl:template name="heading">
    <xsl:param name="title"/>
    <xsl:value-of select="concat($title, $NL, substring($dash, 1, string-length($title)), $NL)"/>
  </xsl:template>

  <!-- ====================================================== attributes -->

  <!-- Primary attributes on the left, secondary ones beside them. -->
  <xsl:template name="attributes">
    <xsl:variable name="sec" select="lifepoints | endurance | speed | essence[normalize-space(@total) != '0'] | dramapoints"/>
    <xsl:value-of select="concat('ATTRIBUTES', substring($sp, 1, 30), 'SECONDARY ATTRIBUTES', $NL)"/>
    <xsl:value-of select="concat(substring($dash, 1, 10), substring($sp, 1, 30), substring($dash, 1, 20), $NL)"/>
    <xsl:value-of select="concat('Attribute       Base  Bonus  Total', substring($sp, 1, 6), 'Attribute          Bonus  Total', $NL)"/>
    <xsl:for-each select="strength | dexterity | constitution | intelligence | perception | willpower">
      <xsl:variable name="i" select="position()"/>
      <xsl:variable name="label" select="concat(translate(substring(name(), 1, 1), $lower, $upper), substring(name(), 2))"/>
      <xsl:call-template name="left"><xsl:with-param name="v" select="$label"/><xsl:with-param name="w" select="14"/></xsl:call-template>
      <xsl:call-template name="right"><xsl:with-param name="v" select="@base"/><xsl:with-param name="w" select="6"/></xsl:call-template>
      <xsl:call-template name="right"><xsl:with-param name="v"><xsl:call-template name="signed"><xsl:with-param name="n" select="@bonus"/></xsl:call-template></xsl:with-param><xsl:with-param name="w" select="7"/></xsl:call-template>
      <xsl:call-template name="right"><xsl:with-param name="v" select="@total"/><xsl:with-param name="w" select="7"/></xsl:call-template>
      <xsl:for-each select="$sec[$i]">
        <xsl:value-of select="substring($sp, 1, 6)"/>
        <xsl:call-template name="left">
          <xsl:with-param name="v">
            <xsl:choose>
              <xsl:when test="self::lifepoints">Life Points</xsl:when>
              <xsl:when test="self::endurance">Endurance</xsl:when>
              <xsl:when test="self::speed">Speed</xsl:when>
              <xsl:when test="self::essence">Essence</xsl:when>
              <xsl:otherwise>Drama Points</xsl:otherwise>
            </xsl:choose>
          </xsl:with-param>
          <xsl:with-param name="w" select="17"/>
        </xsl:call-template>
        <xsl:call-template name="right"><xsl:with-param name="v"><xsl:call-template name="signed"><xsl:with-param name="n" select="@bonus"/></xsl:call-template></xsl:with-param><xsl:with-param name="w" select="7"/></xsl:call-template>
        <xsl:call-template name="right"><xsl:with-param name="v" select="@total | @points"/><xsl:with-param name="w" select="7"/></xsl:call-template>
      </xsl:for-each>
      <xsl:if test="$i = count($sec) + 1 and normalize-space(../extrastats) != ''">
        <xsl:value-of select="substring($sp, 1, 6)"/>
        <xsl:call-template name="wrap">
          <xsl:with-param name="t" select="concat('Pools: ', normalize-space(../extrastats))"/>
          <xsl:with-param name="w" select="$W - 40"/>
          <xsl:with-param name="indent" select="40"/>
        </xsl:call-template>
      </xsl:if>
      <xsl:value-of select="$NL"/>
    </xsl:for-each>
    <xsl:value-of select="$NL"/>
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

  <!-- ========================================== points and experience -->

  <xsl:template name="points">
    <xsl:call-template name="heading"><xsl:with-param name="title" select="'POINTS AND EXPERIENCE'"/></xsl:call-template>
    <!-- a sheet never recomputed has empty budgets: no table of blanks -->
    <xsl:for-each select="charpoints[@*[normalize-space(.) != '']]">
      <xsl:value-of select="concat('          Attributes  Qualities  Drawbacks  Skills  Metaphysics', $NL)"/>
      <xsl:value-of select="'Used    '"/>
      <xsl:call-template name="point-cells"><xsl:with-param name="half" select="1"/></xsl:call-template>
      <xsl:value-of select="concat($NL, 'Budget  ')"/>
      <xsl:call-template name="point-cells"><xsl:with-param name="half" select="2"/></xsl:call-template>
      <xsl:value-of select="$NL"/>
    </xsl:for-each>
    <xsl:if test="experience/@*[normalize-space(.) != '']">
      <xsl:value-of select="concat('Experience: ', experience/@saved, ' unspent, ', experience/@spent, ' spent. ')"/>
    </xsl:if>
    <xsl:choose>
      <xsl:when test="translate(characterinplay/@value, $upper, $lower) = 'yes'">Character in play.</xsl:when>
      <xsl:otherwise>In creation.</xsl:otherwise>
    </xsl:choose>
    <xsl:value-of select="$NL"/>
    <xsl:if test="translate(optionalpointsystem/@value, $upper, $lower) = 'yes'">
      <xsl:value-of select="concat('Optional skill point system in use.', $NL)"/>
    </xsl:if>
    <xsl:if test="number(mentalbonus/@value) != 0 or number(physicalbonus/@value) != 0">
      <xsl:value-of select="concat('Bonus points to place: ', mentalbonus/@value, ' mental, ', physicalbonus/@value, ' physical.', $NL)"/>
    </xsl:if>
    <xsl:value-of select="$NL"/>
  </xsl:template>

  <!-- Budgets are stored as "used/budget"; half 1 is the points used,
       half 2 the budget. -->
  <xsl:template name="point-cells">
    <xsl:param name="half"/>
    <xsl:for-each select="@attributes | @qualities | @drawbacks | @skills | @meta">
      <xsl:variable name="v">
        <xsl:choose>
          <xsl:when test="$half = 1 and contains(., '/')"><xsl:value-of select="normalize-space(substring-before(., '/'))"/></xsl:when>
          <xsl:when test="$half = 1"><xsl:value-of select="normalize-space(.)"/></xsl:when>
          <xsl:otherwise><xsl:value-of select="normalize-space(substring-after(., '/'))"/></xsl:otherwise>
        </xsl:choose>
      </xsl:variable>
      <xsl:call-template name="right">
        <xsl:with-param name="v" select="$v"/>
        <xsl:with-param name="w" select="substring('1211110813', position() * 2 - 1, 2)"/>
      </xsl:call-template>
    </xsl:for-each>
  </xsl:template>

  <!-- ======================================================= the lists -->

  <!-- One table for qualities (g "q"), drawbacks (g "d"), skills or
       metaphysics (g "all"). Column widths follow the data. -->
  <xsl:template name="list">
    <xsl:param name="title"/>
    <xsl:param name="what"/>
    <xsl:param name="all"/>
    <xsl:param name="g" select="'all'"/>
    <xsl:param name="typed" select="false()"/>
    <xsl:variable name="rows" select="$all[not(starts-with(normalize-space(@col0), '--'))]
                                      [$g = 'all' or ($g = 'd') = (number(@col2) &lt; 0)]"/>
    <xsl:if test="$rows">
      <xsl:variable name="nameMax"><xsl:call-template name="maxlen"><xsl:with-param name="s" select="$rows/@col0"/></xsl:call-template></xsl:variable>
      <xsl:variable name="nw">
        <xsl:call-template name="clamp"><xsl:with-param name="n" select="$nameMax + 1"/><xsl:with-param name="lo" select="string-length($what)"/><xsl:with-param name="hi" select="28"/></xsl:call-template>
      </xsl:variable>
      <xsl:variable name="typeMax"><xsl:call-template name="maxlen"><xsl:with-param name="s" select="$rows/@col6"/></xsl:call-template></xsl:variable>
      <xsl:variable name="tw">
        <xsl:choose>
          <xsl:when test="$typed and $typeMax &gt; 0">
            <xsl:call-template name="clamp"><xsl:with-param name="n" select="$typeMax"/><xsl:with-param name="lo" select="4"/><xsl:with-param name="hi" select="10"/></xsl:call-template>
          </xsl:when>
          <xsl:otherwise>0</xsl:otherwise>
        </xsl:choose>
      </xsl:variable>
      <xsl:variable name="l1"><xsl:call-template name="maxlen"><xsl:with-param name="s" select="$rows/@col1"/></xsl:call-template></xsl:variable>
      <xsl:variable name="l2"><xsl:call-template name="maxlen"><xsl:with-param name="s" select="$rows/@col2"/></xsl:call-template></xsl:variable>
      <xsl:variable name="l3"><xsl:call-template name="maxlen"><xsl:with-param name="s" select="$rows/@col3"/></xsl:call-template></xsl:variable>
      <xsl:variable name="lw"><xsl:call-template name="clamp"><xsl:with-param name="n" select="$l1"/><xsl:with-param name="lo" select="3"/><xsl:with-param name="hi" select="6"/></xsl:call-template></xsl:variable>
      <xsl:variable name="cw"><xsl:call-template name="clamp"><xsl:with-param name="n" select="$l2"/><xsl:with-param name="lo" select="4"/><xsl:with-param name="hi" select="6"/></xsl:call-template></xsl:variable>
      <xsl:variable name="xw"><xsl:call-template name="clamp"><xsl:with-param name="n" select="$l3"/><xsl:with-param name="lo" select="3"/><xsl:with-param name="hi" select="6"/></xsl:call-template></xsl:variable>
      <xsl:variable name="pageMax"><xsl:call-template name="maxlen"><xsl:with-param name="s" select="$rows/@col5"/></xsl:call-template></xsl:variable>
      <xsl:variable name="pw">
        <xsl:choose>
          <xsl:when test="$pageMax &gt; 0">
            <xsl:call-template name="clamp"><xsl:with-param name="n" select="$pageMax"/><xsl:with-param name="lo" select="4"/><xsl:with-param name="hi" select="12"/></xsl:call-template>
          </xsl:when>
          <xsl:otherwise>0</xsl:otherwise>
        </xsl:choose>
      </xsl:variable>
      <!-- where the notes column starts; too far right and notes go below -->
      <xsl:variable name="nx" select="$nw + 2 * number($tw &gt; 0) + $tw + 2 + $lw + 2 + $cw + 2 + $xw + 2 * number($pw &gt; 0) + $pw + 2"/>
      <xsl:variable name="below" select="$W - $nx &lt; 20"/>

      <xsl:call-template name="heading"><xsl:with-param name="title" select="$title"/></xsl:call-template>
      <!-- column heads -->
      <xsl:variable name="head">
      <xsl:call-template name="left"><xsl:with-param name="v" select="$what"/><xsl:with-param name="w" select="$nw"/></xsl:call-template>
      <xsl:if test="$tw &gt; 0">
        <xsl:text>  </xsl:text>
        <xsl:call-template name="left"><xsl:with-param name="v" select="'Type'"/><xsl:with-param name="w" select="$tw"/></xsl:call-template>
      </xsl:if>
      <xsl:text>  </xsl:text>
      <xsl:call-template name="right"><xsl:with-param name="v" select="'Lvl'"/><xsl:with-param name="w" select="$lw"/></xsl:call-template>
      <xsl:text>  </xsl:text>
      <xsl:call-template name="right"><xsl:with-param name="v" select="'Cost'"/><xsl:with-param name="w" select="$cw"/></xsl:call-template>
      <xsl:text>  </xsl:text>
      <xsl:call-template name="right"><xsl:with-param name="v" select="'XP'"/><xsl:with-param name="w" select="$xw"/></xsl:call-template>
      <xsl:if test="$pw &gt; 0">
        <xsl:text>  </xsl:text>
        <xsl:call-template name="left"><xsl:with-param name="v" select="'Page'"/><xsl:with-param name="w" select="$pw"/></xsl:call-template>
      </xsl:if>
      <xsl:if test="not($below)">  Notes</xsl:if>
      </xsl:variable>
      <xsl:call-template name="rtrim"><xsl:with-param name="s" select="string($head)"/></xsl:call-template>
      <xsl:value-of select="$NL"/>

      <xsl:for-each select="$all">
        <xsl:choose>
          <xsl:when test="starts-with(normalize-space(@col0), '--')">
            <xsl:variable name="show"><xsl:call-template name="show-sep"><xsl:with-param name="g" select="$g"/></xsl:call-template></xsl:variable>
            <xsl:if test="$show = 'y'">
              <xsl:variable name="label"><xsl:call-template name="sep-label"/></xsl:variable>
              <xsl:choose>
                <xsl:when test="$label != ''"><xsl:value-of select="concat('-- ', $label, ' --', $NL)"/></xsl:when>
                <xsl:otherwise><xsl:value-of select="concat(substring('- - - - - - - - - - - - - - - - - - - - ', 1, 2 * floor(($nw - 1) div 2) + 1), $NL)"/></xsl:otherwise>
              </xsl:choose>
            </xsl:if>
          </xsl:when>
          <xsl:when test="$g = 'all' or ($g = 'd') = (number(@col2) &lt; 0)">
            <xsl:variable name="name"><xsl:call-template name="pretty-name"/></xsl:variable>
            <xsl:variable name="row">
            <xsl:choose>
              <xsl:when test="string-length($name) &gt; $nw">
                <xsl:value-of select="concat($name, $NL, substring($sp, 1, $nw))"/>
              </xsl:when>
              <xsl:otherwise>
                <xsl:call-template name="left"><xsl:with-param name="v" select="$name"/><xsl:with-param name="w" select="$nw"/></xsl:call-template>
              </xsl:otherwise>
            </xsl:choose>
            <xsl:if test="$tw &gt; 0">
              <xsl:text>  </xsl:text>
              <xsl:call-template name="left"><xsl:with-param name="v" select="@col6"/><xsl:with-param name="w" select="$tw"/></xsl:call-template>
            </xsl:if>
            <xsl:text>  </xsl:text>
            <xsl:call-template name="right"><xsl:with-param name="v" select="@col1"/><xsl:with-param name="w" select="$lw"/></xsl:call-template>
            <xsl:text>  </xsl:text>
            <xsl:call-template name="right"><xsl:with-param name="v" select="@col2"/><xsl:with-param name="w" select="$cw"/></xsl:call-template>
            <xsl:text>  </xsl:text>
            <xsl:call-template name="right"><xsl:with-param name="v" select="@col3"/><xsl:with-param name="w" select="$xw"/></xsl:call-template>
            <xsl:if test="$pw &gt; 0">
              <xsl:text>  </xsl:text>
              <xsl:call-template name="left"><xsl:with-param name="v" select="@col5"/><xsl:with-param name="w" select="$pw"/></xsl:call-template>
            </xsl:if>
            <xsl:variable name="note" select="normalize-space(translate(., concat($NL, $CR), '  '))"/>
            <xsl:if test="$note != ''">
              <xsl:choose>
                <xsl:when test="$below">
                  <xsl:value-of select="concat($NL, '    ')"/>
                  <xsl:call-template name="wrap">
                    <xsl:with-param name="t" select="$note"/>
                    <xsl:with-param name="w" select="$W - 4"/>
                    <xsl:with-param name="indent" select="4"/>
                  </xsl:call-template>
                </xsl:when>
                <xsl:otherwise>
                  <xsl:text>  </xsl:text>
                  <xsl:call-template name="wrap">
                    <xsl:with-param name="t" select="$note"/>
                    <xsl:with-param name="w" select="$W - $nx"/>
                    <xsl:with-param name="indent" select="$nx"/>
                  </xsl:call-template>
                </xsl:otherwise>
              </xsl:choose>
            </xsl:if>
            </xsl:variable>
            <xsl:call-template name="rtrim"><xsl:with-param name="s" select="string($row)"/></xsl:call-template>
            <xsl:value-of select="$NL"/>
          </xsl:when>
        </xsl:choose>
      </xsl:for-each>
      <xsl:value-of select="$NL"/>
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

  <!-- ================================= maneuvers and visualizations -->

  <!-- Stored last row first, so walked backwards; "*" marks a basic move. -->
  <xsl:template name="moves">
    <xsl:param name="title"/>
    <xsl:param name="what"/>
    <xsl:param name="moves"/>
    <xsl:if test="$moves">
      <xsl:variable name="max"><xsl:call-template name="maxlen"><xsl:with-param name="s" select="$moves/@name"/></xsl:call-template></xsl:variable>
      <xsl:variable name="nw"><xsl:call-template name="clamp"><xsl:with-param name="n" select="$max + 1"/><xsl:with-param name="lo" select="string-length($what) + 1"/><xsl:with-param name="hi" select="40"/></xsl:call-template></xsl:variable>
      <xsl:call-template name="heading"><xsl:with-param name="title" select="$title"/></xsl:call-template>
      <xsl:call-template name="left"><xsl:with-param name="v" select="$what"/><xsl:with-param name="w" select="$nw"/></xsl:call-template>
      <xsl:value-of select="concat('  Lvl     XP', $NL)"/>
      <xsl:for-each select="$moves">
        <xsl:sort select="position()" data-type="number" order="descending"/>
        <xsl:variable name="row">
        <xsl:call-template name="left"><xsl:with-param name="v" select="normalize-space(@name)"/><xsl:with-param name="w" select="$nw"/></xsl:call-template>
        <xsl:text>  </xsl:text>
        <xsl:call-template name="right"><xsl:with-param name="v" select="@value"/><xsl:with-param name="w" select="3"/></xsl:call-template>
        <xsl:text>  </xsl:text>
        <xsl:call-template name="right"><xsl:with-param name="v" select="@xps"/><xsl:with-param name="w" select="5"/></xsl:call-template>
        </xsl:variable>
        <xsl:call-template name="rtrim"><xsl:with-param name="s" select="string($row)"/></xsl:call-template>
        <xsl:value-of select="$NL"/>
      </xsl:for-each>
      <xsl:if test="$moves[contains(@name, '*')]">
        <xsl:value-of select="concat('(* basic move of the style)', $NL)"/>
      </xsl:if>
      <xsl:value-of select="$NL"/>
    </xsl:if>
  </xsl:template>

  <!-- ===================================================== description -->

  <!-- Two "Label: value" pairs to a line. -->
  <xsl:template name="description">
    <xsl:variable name="set" select="description/@*[normalize-space(.) != '']"/>
    <xsl:if test="$set">
      <xsl:call-template name="heading"><xsl:with-param name="title" select="'DESCRIPTION'"/></xsl:call-template>
      <xsl:for-each select="$set">
        <xsl:variable name="item" select="concat(translate(substring(name(), 1, 1), $lower, $upper), substring(name(), 2), ': ', normalize-space(.))"/>
        <xsl:choose>
          <xsl:when test="position() mod 2 = 1 and position() != last() and string-length($item) &lt; 38">
            <xsl:call-template name="left"><xsl:with-param name="v" select="$item"/><xsl:with-param name="w" select="40"/></xsl:call-template>
          </xsl:when>
          <xsl:otherwise><xsl:value-of select="concat($item, $NL)"/></xsl:otherwise>
        </xsl:choose>
      </xsl:for-each>
      <xsl:value-of select="$NL"/>
    </xsl:if>
  </xsl:template>

  <!-- ===================================================== styled text -->

  <!-- The plain lines of a styled field, each wrapped on its own so the
       user's line breaks stay where they were. -->
  <xsl:template match="notes | history | contacts | altforms | equipment | journal">
    <xsl:if test="p[normalize-space(.) != '']">
      <xsl:call-template name="heading">
        <xsl:with-param name="title">
          <xsl:choose>
            <xsl:when test="self::notes">NOTES</xsl:when>
            <xsl:when test="self::history">HISTORY</xsl:when>
            <xsl:when test="self::contacts">CONTACTS</xsl:when>
            <xsl:when test="self::altforms">ALTERNATE FORMS</xsl:when>
            <xsl:when test="self::equipment">EQUIPMENT</xsl:when>
            <xsl:otherwise>JOURNAL</xsl:otherwise>
          </xsl:choose>
        </xsl:with-param>
      </xsl:call-template>
      <!-- trailing empty lines would only widen the gap to the next section -->
      <xsl:variable name="last" select="count(p[normalize-space(.) != ''][last()]/preceding-sibling::p) + 1"/>
      <xsl:for-each select="p[position() &lt;= $last]">
        <xsl:variable name="line" select="translate(., $CR, ' ')"/>
        <xsl:choose>
          <xsl:when test="string-length($line) &lt;= $W">
            <xsl:call-template name="rtrim"><xsl:with-param name="s" select="$line"/></xsl:call-template>
          </xsl:when>
          <xsl:otherwise>
            <xsl:call-template name="wrap">
              <xsl:with-param name="t" select="normalize-space($line)"/>
              <xsl:with-param name="w" select="$W"/>
              <xsl:with-param name="indent" select="0"/>
            </xsl:call-template>
          </xsl:otherwise>
        </xsl:choose>
        <xsl:value-of select="$NL"/>
      </xsl:for-each>
      <xsl:value-of select="$NL"/>
    </xsl:if>
  </xsl:template>

  <!-- ========================================================= helpers -->

  <xsl:template name="left">
    <xsl:param name="v"/>
    <xsl:param name="w"/>
    <xsl:value-of select="concat($v, substring($sp, 1, $w - string-length($v)))"/>
  </xsl:template>

  <xsl:template name="right">
    <xsl:param name="v"/>
    <xsl:param name="w"/>
    <xsl:value-of select="concat(substring($sp, 1, $w - string-length($v)), $v)"/>
  </xsl:template>

  <!-- Trailing blanks off: padding of an empty last column. -->
  <xsl:template name="rtrim">
    <xsl:param name="s"/>
    <xsl:choose>
      <xsl:when test="substring($s, string-length($s)) = ' '">
        <xsl:call-template name="rtrim"><xsl:with-param name="s" select="substring($s, 1, string-length($s) - 1)"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$s"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- Length of the longest string among the nodes, 0 for none. -->
  <xsl:template name="maxlen">
    <xsl:param name="s"/>
    <xsl:choose>
      <xsl:when test="not($s)">0</xsl:when>
      <xsl:otherwise>
        <xsl:for-each select="$s">
          <xsl:sort select="string-length(normalize-space(.))" data-type="number" order="descending"/>
          <xsl:if test="position() = 1"><xsl:value-of select="string-length(normalize-space(.))"/></xsl:if>
        </xsl:for-each>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="clamp">
    <xsl:param name="n"/>
    <xsl:param name="lo"/>
    <xsl:param name="hi"/>
    <xsl:choose>
      <xsl:when test="$n &lt; $lo"><xsl:value-of select="$lo"/></xsl:when>
      <xsl:when test="$n &gt; $hi"><xsl:value-of select="$hi"/></xsl:when>
      <xsl:otherwise><xsl:value-of select="$n"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- Word wrap of a one-line text to w columns; continuation lines are
       indented by "indent" blanks. A word longer than a line stands alone. -->
  <xsl:template name="wrap">
    <xsl:param name="t"/>
    <xsl:param name="w"/>
    <xsl:param name="indent"/>
    <xsl:choose>
      <xsl:when test="string-length($t) &lt;= $w"><xsl:value-of select="$t"/></xsl:when>
      <xsl:otherwise>
        <xsl:variable name="cut">
          <xsl:call-template name="last-space"><xsl:with-param name="s" select="substring($t, 1, $w + 1)"/></xsl:call-template>
        </xsl:variable>
        <xsl:variable name="line">
          <xsl:choose>
            <xsl:when test="$cut &gt; 1"><xsl:value-of select="substring($t, 1, $cut - 1)"/></xsl:when>
            <xsl:otherwise><xsl:value-of select="substring-before(concat($t, ' '), ' ')"/></xsl:otherwise>
          </xsl:choose>
        </xsl:variable>
        <xsl:variable name="rest" select="normalize-space(substring($t, string-length($line) + 1))"/>
        <xsl:value-of select="$line"/>
        <xsl:if test="$rest != ''">
          <xsl:value-of select="concat($NL, substring($sp, 1, $indent))"/>
          <xsl:call-template name="wrap">
            <xsl:with-param name="t" select="$rest"/>
            <xsl:with-param name="w" select="$w"/>
            <xsl:with-param name="indent" select="$indent"/>
          </xsl:call-template>
        </xsl:if>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- Position of the last blank in s, 0 if there is none. -->
  <xsl:template name="last-space">
    <xsl:param name="s"/>
    <xsl:param name="at" select="0"/>
    <xsl:choose>
      <xsl:when test="contains($s, ' ')">
        <xsl:call-template name="last-space">
          <xsl:with-param name="s" select="substring-after($s, ' ')"/>
          <xsl:with-param name="at" select="$at + string-length(substring-before($s, ' ')) + 1"/>
        </xsl:call-template>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$at"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

</xsl:stylesheet>
