<?xml version="1.0" encoding="UTF-8"?>
<!--
  zephtml.xsl - printable HTML character sheet.

  Input: a Zephalon character file (root element "character").
  The sheet is meant for the browser preview and for paper: A4 and US letter
  both fit, colours survive printing, and small blocks never split across a
  page.
-->
<xsl:stylesheet version="1.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">

  <xsl:output method="html" encoding="UTF-8" indent="yes" doctype-system="about:legacy-compat"/>

  <xsl:variable name="LF" select="'&#10;'"/>
  <xsl:variable name="CR" select="'&#13;'"/>
  <xsl:variable name="upper" select="'ABCDEFGHIJKLMNOPQRSTUVWXYZ'"/>
  <xsl:variable name="lower" select="'abcdefghijklmnopqrstuvwxyz'"/>

  <!-- ============================================================ page -->

  <xsl:template match="/">
    <xsl:apply-templates select="character"/>
  </xsl:template>

  <xsl:template match="character">
    <html lang="en">
      <head>
        <title>
          <xsl:choose>
            <xsl:when test="normalize-space(@name) != ''"><xsl:value-of select="@name"/></xsl:when>
            <xsl:otherwise>Unnamed character</xsl:otherwise>
          </xsl:choose>
          <xsl:text> - Character Sheet</xsl:text>
        </title>
        <style>
          <xsl:call-template name="css"/>
        </style>
      </head>
      <body>
        <div class="sheet">
          <xsl:call-template name="header"/>

          <div class="row">
            <div class="col">
              <xsl:call-template name="primary"/>
            </div>
            <div class="col">
              <xsl:call-template name="secondary"/>
            </div>
          </div>

          <xsl:call-template name="points"/>
          <xsl:call-template name="qualities"/>
          <xsl:call-template name="rows">
            <xsl:with-param name="rows" select="skill"/>
            <xsl:with-param name="title" select="'Skills'"/>
            <xsl:with-param name="what" select="'Skill'"/>
            <xsl:with-param name="class" select="'skills'"/>
          </xsl:call-template>
          <xsl:call-template name="rows">
            <xsl:with-param name="rows" select="meta"/>
            <xsl:with-param name="title" select="'Metaphysics'"/>
            <xsl:with-param name="what" select="'Metaphysic'"/>
            <xsl:with-param name="class" select="'meta'"/>
          </xsl:call-template>
          <xsl:call-template name="moves"/>
          <xsl:call-template name="description"/>

          <xsl:apply-templates select="notes | history | contacts | altforms | equipment | journal"/>

          <div class="foot">
            <xsl:value-of select="@ZephalonVersion"/>
            <xsl:if test="normalize-space(@LastChange) != ''">
              <xsl:text> · saved </xsl:text><xsl:value-of select="@LastChange"/>
            </xsl:if>
            <xsl:if test="normalize-space(@books) != ''">
              <xsl:text> · books: </xsl:text><xsl:value-of select="@books"/>
            </xsl:if>
          </div>
        </div>
      </body>
    </html>
  </xsl:template>

  <!-- ========================================================== header -->

  <xsl:template name="header">
    <div class="head">
      <div class="title">
        <div class="kicker">Unisystem Character Sheet</div>
        <h1>
          <xsl:choose>
            <xsl:when test="normalize-space(@name) != ''"><xsl:value-of select="@name"/></xsl:when>
            <xsl:otherwise><span class="none">Unnamed character</span></xsl:otherwise>
          </xsl:choose>
        </h1>
        <div class="ident">
          <xsl:call-template name="field">
            <xsl:with-param name="label" select="'Player'"/>
            <xsl:with-param name="value" select="player/@name"/>
          </xsl:call-template>
          <xsl:call-template name="field">
            <xsl:with-param name="label" select="'Concept'"/>
            <xsl:with-param name="value" select="concept/@concept"/>
          </xsl:call-template>
          <xsl:call-template name="field">
            <xsl:with-param name="label" select="'Character Type'"/>
            <xsl:with-param name="value" select="charactertype/@type"/>
          </xsl:call-template>
          <xsl:call-template name="field">
            <xsl:with-param name="label" select="'Choice'"/>
            <xsl:with-param name="value" select="charactertype/@choice"/>
          </xsl:call-template>
          <xsl:call-template name="field">
            <xsl:with-param name="label" select="'Association'"/>
            <xsl:with-param name="value" select="association/@name"/>
          </xsl:call-template>
        </div>
        <xsl:if test="normalize-space(association) != ''">
          <p class="assoc">
            <xsl:call-template name="br">
              <xsl:with-param name="t" select="string(association)"/>
            </xsl:call-template>
          </p>
        </xsl:if>
      </div>
      <xsl:if test="normalize-space(portrait/@path) != ''">
        <div class="portrait">
          <!-- The picture is only on the user's disk; if it has moved, drop
               the frame rather than print a broken image. -->
          <img alt="" onerror="this.parentNode.style.display='none'">
            <xsl:attribute name="src">
              <xsl:call-template name="file-url">
                <xsl:with-param name="path" select="portrait/@path"/>
              </xsl:call-template>
            </xsl:attribute>
          </img>
        </div>
      </xsl:if>
    </div>
  </xsl:template>

  <!-- A labelled fill-in field of the identity strip. Empty values still
       get their box, so the strip keeps its shape and can be filled by pen. -->
  <xsl:template name="field">
    <xsl:param name="label"/>
    <xsl:param name="value"/>
    <div class="field">
      <div class="label"><xsl:value-of select="$label"/></div>
      <div class="value">
        <xsl:value-of select="$value"/>
        <xsl:if test="normalize-space($value) = ''"><xsl:text>&#160;</xsl:text></xsl:if>
      </div>
    </div>
  </xsl:template>

  <!-- Absolute paths become file URLs; Windows paths get forward slashes. -->
  <xsl:template name="file-url">
    <xsl:param name="path"/>
    <xsl:choose>
      <xsl:when test="contains($path, '://')"><xsl:value-of select="$path"/></xsl:when>
      <xsl:when test="starts-with($path, '/')">
        <xsl:value-of select="concat('file://', $path)"/>
      </xsl:when>
      <xsl:when test="substring($path, 2, 1) = ':'">
        <xsl:value-of select="concat('file:///', translate($path, '\', '/'))"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$path"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- ====================================================== attributes -->

  <xsl:template name="primary">
    <div class="block">
      <h2>Attributes</h2>
      <table class="stats">
        <thead>
          <tr><th class="name">Attribute</th><th>Base</th><th>Bonus</th><th>Total</th></tr>
        </thead>
        <tbody>
          <xsl:apply-templates select="strength" mode="attr"><xsl:with-param name="label" select="'Strength'"/></xsl:apply-templates>
          <xsl:apply-templates select="dexterity" mode="attr"><xsl:with-param name="label" select="'Dexterity'"/></xsl:apply-templates>
          <xsl:apply-templates select="constitution" mode="attr"><xsl:with-param name="label" select="'Constitution'"/></xsl:apply-templates>
          <xsl:apply-templates select="intelligence" mode="attr"><xsl:with-param name="label" select="'Intelligence'"/></xsl:apply-templates>
          <xsl:apply-templates select="perception" mode="attr"><xsl:with-param name="label" select="'Perception'"/></xsl:apply-templates>
          <xsl:apply-templates select="willpower" mode="attr"><xsl:with-param name="label" select="'Willpower'"/></xsl:apply-templates>
        </tbody>
      </table>
    </div>
  </xsl:template>

  <xsl:template match="*" mode="attr">
    <xsl:param name="label"/>
    <tr>
      <td class="name"><xsl:value-of select="$label"/></td>
      <td class="num"><xsl:value-of select="@base"/></td>
      <td class="num bonus"><xsl:call-template name="signed"><xsl:with-param name="n" select="@bonus"/></xsl:call-template></td>
      <td class="num total"><span><xsl:value-of select="@total"/></span></td>
    </tr>
  </xsl:template>

  <xsl:template name="secondary">
    <div class="block">
      <h2>Secondary Attributes</h2>
      <table class="stats">
        <thead>
          <tr><th class="name">Attribute</th><th>Bonus</th><th>Total</th></tr>
        </thead>
        <tbody>
          <xsl:apply-templates select="lifepoints" mode="sec"><xsl:with-param name="label" select="'Life Points'"/></xsl:apply-templates>
          <xsl:apply-templates select="endurance" mode="sec"><xsl:with-param name="label" select="'Endurance'"/></xsl:apply-templates>
          <xsl:apply-templates select="speed" mode="sec"><xsl:with-param name="label" select="'Speed'"/></xsl:apply-templates>
          <!-- The program hides Essence when its total is 0; so does the sheet. -->
          <xsl:apply-templates select="essence[normalize-space(@total) != '0']" mode="sec"><xsl:with-param name="label" select="'Essence'"/></xsl:apply-templates>
          <xsl:for-each select="dramapoints">
            <tr>
              <td class="name">Drama Points</td>
              <td class="num bonus"></td>
              <td class="num total"><span><xsl:value-of select="@points"/></span></td>
            </tr>
          </xsl:for-each>
        </tbody>
      </table>
      <xsl:if test="normalize-space(extrastats) != ''">
        <div class="pools">
          <span class="label">Pools</span>
          <xsl:text> </xsl:text>
          <xsl:value-of select="extrastats"/>
        </div>
      </xsl:if>
    </div>
  </xsl:template>

  <xsl:template match="*" mode="sec">
    <xsl:param name="label"/>
    <tr>
      <td class="name"><xsl:value-of select="$label"/></td>
      <td class="num bonus"><xsl:call-template name="signed"><xsl:with-param name="n" select="@bonus"/></xsl:call-template></td>
      <td class="num total"><span><xsl:value-of select="@total"/></span></td>
    </tr>
  </xsl:template>

  <!-- Bonuses read better with their sign: +2 rather than 2. -->
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
    <div class="block">
      <h2>Points and Experience</h2>
      <div class="tiles">
        <xsl:for-each select="charpoints">
          <xsl:call-template name="tile"><xsl:with-param name="label" select="'Attributes'"/><xsl:with-param name="value" select="@attributes"/></xsl:call-template>
          <xsl:call-template name="tile"><xsl:with-param name="label" select="'Qualities'"/><xsl:with-param name="value" select="@qualities"/></xsl:call-template>
          <xsl:call-template name="tile"><xsl:with-param name="label" select="'Drawbacks'"/><xsl:with-param name="value" select="@drawbacks"/></xsl:call-template>
          <xsl:call-template name="tile"><xsl:with-param name="label" select="'Skills'"/><xsl:with-param name="value" select="@skills"/></xsl:call-template>
          <xsl:call-template name="tile"><xsl:with-param name="label" select="'Metaphysics'"/><xsl:with-param name="value" select="@meta"/></xsl:call-template>
        </xsl:for-each>
        <xsl:for-each select="experience">
          <xsl:call-template name="tile"><xsl:with-param name="label" select="'XP unspent'"/><xsl:with-param name="value" select="@saved"/><xsl:with-param name="class" select="'xp'"/></xsl:call-template>
          <xsl:call-template name="tile"><xsl:with-param name="label" select="'XP spent'"/><xsl:with-param name="value" select="@spent"/><xsl:with-param name="class" select="'xp'"/></xsl:call-template>
        </xsl:for-each>
      </div>
      <div class="flags">
        <xsl:choose>
          <xsl:when test="translate(characterinplay/@value, $upper, $lower) = 'yes'">
            <span class="flag on">Character in play</span>
          </xsl:when>
          <xsl:otherwise><span class="flag">In creation</span></xsl:otherwise>
        </xsl:choose>
        <xsl:if test="translate(optionalpointsystem/@value, $upper, $lower) = 'yes'">
          <span class="flag on">Optional skill point system</span>
        </xsl:if>
        <xsl:if test="number(mentalbonus/@value) != 0">
          <span class="flag">Mental bonus points to place: <xsl:value-of select="mentalbonus/@value"/></span>
        </xsl:if>
        <xsl:if test="number(physicalbonus/@value) != 0">
          <span class="flag">Physical bonus points to place: <xsl:value-of select="physicalbonus/@value"/></span>
        </xsl:if>
      </div>
    </div>
  </xsl:template>

  <!-- Budgets are stored as "used/budget"; show both halves apart. -->
  <xsl:template name="tile">
    <xsl:param name="label"/>
    <xsl:param name="value"/>
    <xsl:param name="class"/>
    <div class="tile {$class}">
      <div class="label"><xsl:value-of select="$label"/></div>
      <div class="value">
        <xsl:choose>
          <xsl:when test="contains($value, '/')">
            <b><xsl:value-of select="normalize-space(substring-before($value, '/'))"/></b>
            <span class="of"> / <xsl:value-of select="normalize-space(substring-after($value, '/'))"/></span>
          </xsl:when>
          <xsl:when test="normalize-space($value) != ''"><b><xsl:value-of select="$value"/></b></xsl:when>
          <xsl:otherwise><span class="of">–</span></xsl:otherwise>
        </xsl:choose>
      </div>
    </div>
  </xsl:template>

  <!-- ================================================ list rows shared -->

  <!-- A separator row is two dashes in the name and nothing else; a name that
       carries words between the dashes is shown as a sub-heading. -->
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

  <!-- Sub-types are stored glued to the name, "Guns(Handgun)"; print them
       with a blank. -->
  <xsl:template name="pretty-name">
    <xsl:param name="s" select="@col0"/>
    <xsl:variable name="before" select="substring-before($s, '(')"/>
    <xsl:choose>
      <xsl:when test="$before != '' and substring($before, string-length($before)) != ' '">
        <xsl:value-of select="concat($before, ' (', substring-after($s, '('))"/>
      </xsl:when>
      <xsl:otherwise><xsl:value-of select="$s"/></xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <xsl:template name="list-head">
    <xsl:param name="what"/>
    <xsl:param name="rows"/>
    <xsl:param name="type"/>
    <thead>
      <tr>
        <th class="name"><xsl:value-of select="$what"/></th>
        <xsl:if test="$type"><th class="type">Type</th></xsl:if>
        <th class="num">Level</th>
        <th class="num">Cost</th>
        <th class="num">XP</th>
        <xsl:if test="$rows[normalize-space(@col5) != '']"><th class="ref">Page</th></xsl:if>
        <th class="notes">Notes</th>
      </tr>
    </thead>
  </xsl:template>

  <!-- One ordinary row of a quality, skill or metaphysic list. -->
  <xsl:template name="list-row">
    <xsl:param name="refs"/>
    <xsl:param name="type"/>
    <tr>
      <td class="name"><xsl:call-template name="pretty-name"/></td>
      <xsl:if test="$type"><td class="type"><xsl:value-of select="@col6"/></td></xsl:if>
      <td class="num"><xsl:value-of select="@col1"/></td>
      <td class="num"><xsl:value-of select="@col2"/></td>
      <td class="num"><xsl:value-of select="@col3"/></td>
      <xsl:if test="$refs"><td class="ref"><xsl:value-of select="@col5"/></td></xsl:if>
      <td class="notes">
        <xsl:call-template name="br"><xsl:with-param name="t" select="string(.)"/></xsl:call-template>
      </td>
    </tr>
  </xsl:template>

  <!-- Whether a separator row is drawn ("y") in the group g of its list:
       "q" qualities, "d" drawbacks, "all" a list without groups. It must
       stand above a row of its group; a bare one must also stand below one,
       so it never opens or closes a table, and of a run of bare ones only
       the last is drawn. A labelled one is always a heading. -->
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

  <xsl:template name="sep-row">
    <xsl:param name="span"/>
    <xsl:variable name="label"><xsl:call-template name="sep-label"/></xsl:variable>
    <tr class="sep">
      <td colspan="{$span}">
        <xsl:if test="$label != ''"><span><xsl:value-of select="$label"/></span></xsl:if>
      </td>
    </tr>
  </xsl:template>

  <!-- ========================================= qualities and drawbacks -->

  <!-- The program tells a drawback from a quality by its negative cost
       (column 2), so the sheet groups them the same way. -->
  <xsl:template name="qualities">
    <xsl:variable name="all" select="quality[not(starts-with(normalize-space(@col0), '--'))]"/>
    <xsl:variable name="good" select="$all[not(number(@col2) &lt; 0)]"/>
    <xsl:variable name="bad" select="$all[number(@col2) &lt; 0]"/>
    <xsl:if test="$all">
      <div class="list">
        <h2>Qualities and Drawbacks</h2>
        <xsl:if test="$good">
          <xsl:call-template name="quality-table">
            <xsl:with-param name="title" select="'Qualities'"/>
            <xsl:with-param name="what" select="'Quality'"/>
            <xsl:with-param name="rows" select="$good"/>
            <xsl:with-param name="drawbacks" select="false()"/>
          </xsl:call-template>
        </xsl:if>
        <xsl:if test="$bad">
          <xsl:call-template name="quality-table">
            <xsl:with-param name="title" select="'Drawbacks'"/>
            <xsl:with-param name="what" select="'Drawback'"/>
            <xsl:with-param name="rows" select="$bad"/>
            <xsl:with-param name="drawbacks" select="true()"/>
          </xsl:call-template>
        </xsl:if>
      </div>
    </xsl:if>
  </xsl:template>

  <xsl:template name="quality-table">
    <xsl:param name="title"/>
    <xsl:param name="what"/>
    <xsl:param name="rows"/>
    <xsl:param name="drawbacks"/>
    <xsl:variable name="refs" select="boolean($rows[normalize-space(@col5) != ''])"/>
    <h3><xsl:value-of select="$title"/></h3>
    <table class="rows">
      <xsl:call-template name="list-head">
        <xsl:with-param name="what" select="$what"/>
        <xsl:with-param name="rows" select="$rows"/>
      </xsl:call-template>
      <tbody>
        <xsl:for-each select="quality">
          <xsl:variable name="sep" select="starts-with(normalize-space(@col0), '--')"/>
          <xsl:variable name="neg" select="number(@col2) &lt; 0"/>
          <xsl:choose>
            <xsl:when test="not($sep)">
              <xsl:if test="$neg = $drawbacks">
                <xsl:call-template name="list-row"><xsl:with-param name="refs" select="$refs"/></xsl:call-template>
              </xsl:if>
            </xsl:when>
            <xsl:otherwise>
              <xsl:variable name="show">
                <xsl:call-template name="show-sep">
                  <xsl:with-param name="g" select="substring('qd', 1 + number($drawbacks), 1)"/>
                </xsl:call-template>
              </xsl:variable>
              <xsl:if test="$show = 'y'">
                <xsl:call-template name="sep-row">
                  <xsl:with-param name="span" select="5 + number($refs)"/>
                </xsl:call-template>
              </xsl:if>
            </xsl:otherwise>
          </xsl:choose>
        </xsl:for-each>
      </tbody>
    </table>
  </xsl:template>

  <!-- ============================================ skills and metaphysics -->

  <xsl:template name="rows">
    <xsl:param name="rows"/>
    <xsl:param name="title"/>
    <xsl:param name="what"/>
    <xsl:param name="class"/>
    <xsl:variable name="real" select="$rows[not(starts-with(normalize-space(@col0), '--'))]"/>
    <xsl:variable name="refs" select="boolean($real[normalize-space(@col5) != ''])"/>
    <xsl:variable name="type" select="$class = 'skills' and boolean($real[normalize-space(@col6) != ''])"/>
    <xsl:if test="$real">
      <div class="list {$class}">
        <h2><xsl:value-of select="$title"/></h2>
        <table class="rows">
          <xsl:call-template name="list-head">
            <xsl:with-param name="what" select="$what"/>
            <xsl:with-param name="rows" select="$real"/>
            <xsl:with-param name="type" select="$type"/>
          </xsl:call-template>
          <tbody>
            <xsl:for-each select="$rows">
              <xsl:choose>
                <xsl:when test="not(starts-with(normalize-space(@col0), '--'))">
                  <xsl:call-template name="list-row">
                    <xsl:with-param name="refs" select="$refs"/>
                    <xsl:with-param name="type" select="$type"/>
                  </xsl:call-template>
                </xsl:when>
                <xsl:otherwise>
                  <xsl:variable name="show"><xsl:call-template name="show-sep"/></xsl:variable>
                  <xsl:if test="$show = 'y'">
                    <xsl:call-template name="sep-row">
                      <xsl:with-param name="span" select="5 + number($refs) + number($type)"/>
                    </xsl:call-template>
                  </xsl:if>
                </xsl:otherwise>
              </xsl:choose>
            </xsl:for-each>
          </tbody>
        </table>
      </div>
    </xsl:if>
  </xsl:template>

  <!-- ================================= maneuvers and visualizations -->

  <xsl:template name="moves">
    <xsl:if test="martialmaneuver | visualization">
      <div class="block">
        <div class="row">
          <xsl:if test="martialmaneuver">
            <div class="col">
              <h2>Martial Maneuvers</h2>
              <xsl:call-template name="move-table">
                <xsl:with-param name="moves" select="martialmaneuver"/>
                <xsl:with-param name="what" select="'Maneuver'"/>
              </xsl:call-template>
              <xsl:if test="martialmaneuver[contains(@name, '*')]">
                <div class="hint">Bold: basic move of the style.</div>
              </xsl:if>
            </div>
          </xsl:if>
          <xsl:if test="visualization">
            <div class="col">
              <h2>Visualizations</h2>
              <xsl:call-template name="move-table">
                <xsl:with-param name="moves" select="visualization"/>
                <xsl:with-param name="what" select="'Visualization'"/>
              </xsl:call-template>
            </div>
          </xsl:if>
        </div>
      </div>
    </xsl:if>
  </xsl:template>

  <!-- The program stores moves last row first; reverse them so the sheet
       shows the order the player gave them. A leading "*" marks a basic move. -->
  <xsl:template name="move-table">
    <xsl:param name="moves"/>
    <xsl:param name="what"/>
    <table class="rows moves">
      <thead>
        <tr><th class="name"><xsl:value-of select="$what"/></th><th class="num">Level</th><th class="num">XP</th></tr>
      </thead>
      <tbody>
        <xsl:for-each select="$moves">
          <xsl:sort select="position()" data-type="number" order="descending"/>
          <tr>
            <xsl:if test="contains(@name, '*')"><xsl:attribute name="class">basic</xsl:attribute></xsl:if>
            <td class="name"><xsl:value-of select="normalize-space(translate(@name, '*', ''))"/></td>
            <td class="num"><xsl:value-of select="@value"/></td>
            <td class="num"><xsl:value-of select="@xps"/></td>
          </tr>
        </xsl:for-each>
      </tbody>
    </table>
  </xsl:template>

  <!-- ===================================================== description -->

  <xsl:template name="description">
    <xsl:variable name="d" select="description"/>
    <xsl:if test="$d/@*[normalize-space(.) != '']">
      <div class="block">
        <h2>Description</h2>
        <div class="desc">
          <xsl:for-each select="$d/@gender | $d/@age | $d/@race | $d/@height | $d/@weight | $d/@hair | $d/@eyes">
            <xsl:if test="normalize-space(.) != ''">
              <div class="field">
                <div class="label">
                  <xsl:value-of select="translate(substring(name(), 1, 1), $lower, $upper)"/>
                  <xsl:value-of select="substring(name(), 2)"/>
                </div>
                <div class="value"><xsl:value-of select="."/></div>
              </div>
            </xsl:if>
          </xsl:for-each>
        </div>
      </div>
    </xsl:if>
  </xsl:template>

  <!-- ===================================================== styled text -->

  <xsl:template match="notes | history | contacts | altforms | equipment | journal">
    <xsl:if test="sr[string(.) != ''] or p[string(.) != '']">
      <div class="text {name()}">
        <h2>
          <xsl:choose>
            <xsl:when test="self::notes">Notes</xsl:when>
            <xsl:when test="self::history">History</xsl:when>
            <xsl:when test="self::contacts">Contacts</xsl:when>
            <xsl:when test="self::altforms">Alternate Forms</xsl:when>
            <xsl:when test="self::equipment">Equipment</xsl:when>
            <xsl:when test="self::journal">Journal</xsl:when>
          </xsl:choose>
        </h2>
        <div class="styled">
          <xsl:choose>
            <xsl:when test="sr">
              <xsl:apply-templates select="sr"/>
            </xsl:when>
            <!-- Without style runs the plain lines still carry the text. -->
            <xsl:otherwise>
              <xsl:for-each select="p">
                <xsl:if test="position() != 1"><br/></xsl:if>
                <span class="run"><xsl:value-of select="."/></span>
              </xsl:for-each>
            </xsl:otherwise>
          </xsl:choose>
        </div>
      </div>
    </xsl:if>
  </xsl:template>

  <xsl:template match="sr">
    <xsl:variable name="style">
      <xsl:if test="translate(@b, 'T', 't') = 't'">font-weight:bold;</xsl:if>
      <xsl:if test="translate(@i, 'T', 't') = 't'">font-style:italic;</xsl:if>
      <xsl:if test="translate(@u, 'T', 't') = 't'">text-decoration:underline;</xsl:if>
      <xsl:if test="normalize-space(@f) != ''">
        <xsl:text>font-family:'</xsl:text>
        <xsl:value-of select="translate(normalize-space(@f), concat('&quot;', &quot;'\;{}&lt;&gt;&quot;), '')"/>
        <xsl:text>',</xsl:text>
        <xsl:call-template name="generic-font"><xsl:with-param name="f" select="translate(@f, $upper, $lower)"/></xsl:call-template>
        <xsl:text>;</xsl:text>
      </xsl:if>
      <xsl:if test="number(@s) &gt; 0">font-size:<xsl:value-of select="number(@s)"/>pt;</xsl:if>
      <xsl:call-template name="colour"/>
    </xsl:variable>
    <span class="run">
      <xsl:if test="$style != ''"><xsl:attribute name="style"><xsl:value-of select="$style"/></xsl:attribute></xsl:if>
      <xsl:choose>
        <!-- A run without text stands for a line end, as on loading. -->
        <xsl:when test="not(node())"><br/></xsl:when>
        <xsl:otherwise>
          <xsl:call-template name="br"><xsl:with-param name="t" select="string(.)"/></xsl:call-template>
        </xsl:otherwise>
      </xsl:choose>
    </span>
  </xsl:template>

  <!-- The run's font may not exist where the sheet is opened; fall back to
       a family of the same kind rather than to the browser's default. -->
  <xsl:template name="generic-font">
    <xsl:param name="f"/>
    <xsl:choose>
      <xsl:when test="contains($f, 'mono') or contains($f, 'courier') or contains($f, 'consol') or contains($f, 'typewriter')">monospace</xsl:when>
      <xsl:when test="contains($f, 'sans')">sans-serif</xsl:when>
      <xsl:when test="contains($f, 'serif') or contains($f, 'times') or contains($f, 'georgia') or contains($f, 'garamond')
                      or contains($f, 'roman') or contains($f, 'palatino') or contains($f, 'baskerville') or contains($f, 'book')">serif</xsl:when>
      <xsl:otherwise>sans-serif</xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- "c" holds the true colour as #RRGGBB; "cd" (decimal) is only a
       fallback for hand-made files. -->
  <xsl:template name="colour">
    <xsl:variable name="c" select="normalize-space(@c)"/>
    <xsl:variable name="cd" select="normalize-space(@cd)"/>
    <xsl:choose>
      <xsl:when test="string-length($c) = 7 and starts-with($c, '#')
                      and translate(substring($c, 2), '0123456789ABCDEFabcdef', '') = ''">
        <xsl:value-of select="concat('color:', $c, ';')"/>
      </xsl:when>
      <xsl:when test="$cd != '' and translate($cd, '0123456789 ', '') = ''
                      and contains(substring-after($cd, ' '), ' ')">
        <xsl:value-of select="concat('color:rgb(', translate($cd, ' ', ','), ');')"/>
      </xsl:when>
    </xsl:choose>
  </xsl:template>

  <!-- Line ends (LF, CR or CR LF) become <br>. Long texts are halved
       rather than walked line by line, to keep the recursion shallow for
       journals of any length. -->
  <xsl:template name="br">
    <xsl:param name="t"/>
    <xsl:choose>
      <xsl:when test="not(contains($t, $LF) or contains($t, $CR))">
        <xsl:value-of select="$t"/>
      </xsl:when>
      <xsl:when test="string-length($t) &gt; 400">
        <xsl:variable name="m0" select="floor(string-length($t) div 2)"/>
        <!-- never cut between the CR and LF of one line end -->
        <xsl:variable name="m" select="$m0 + number(substring($t, $m0, 1) = $CR)"/>
        <xsl:call-template name="br"><xsl:with-param name="t" select="substring($t, 1, $m)"/></xsl:call-template>
        <xsl:call-template name="br"><xsl:with-param name="t" select="substring($t, $m + 1)"/></xsl:call-template>
      </xsl:when>
      <xsl:otherwise>
        <xsl:variable name="head" select="substring-before(translate($t, $CR, $LF), $LF)"/>
        <xsl:variable name="cut" select="string-length($head) + 1"/>
        <xsl:variable name="rest" select="substring($t, $cut + 1)"/>
        <xsl:value-of select="$head"/>
        <br/>
        <xsl:call-template name="br">
          <xsl:with-param name="t">
            <xsl:choose>
              <xsl:when test="substring($t, $cut, 1) = $CR and starts-with($rest, $LF)"><xsl:value-of select="substring($rest, 2)"/></xsl:when>
              <xsl:otherwise><xsl:value-of select="$rest"/></xsl:otherwise>
            </xsl:choose>
          </xsl:with-param>
        </xsl:call-template>
      </xsl:otherwise>
    </xsl:choose>
  </xsl:template>

  <!-- ============================================================= css -->

  <xsl:template name="css">
:root {
  --ink: #1e2230;
  --muted: #5c6475;
  --accent: #7d1d1d;
  --rule: #b9bfcc;
  --tint: #e8ebff;
  --tint-strong: #d3d8f5;
  --paper: #ffffff;
}
* { box-sizing: border-box; -webkit-print-color-adjust: exact; print-color-adjust: exact; }
html { background: #d6d9e0; }
body {
  margin: 0;
  color: var(--ink);
  font: 9.5pt/1.4 "DejaVu Sans", "Segoe UI", "Helvetica Neue", Arial, sans-serif;
}
.sheet {
  max-width: 200mm;
  margin: 8mm auto;
  padding: 11mm 12mm 8mm;
  background: var(--paper);
  box-shadow: 0 1px 6px rgba(0, 0, 0, 0.25);
}
h1, h2, h3 { font-family: "DejaVu Serif", Georgia, "Times New Roman", serif; font-weight: bold; }
h1 { margin: 0; font-size: 24pt; line-height: 1.1; letter-spacing: 0.01em; }
h2 {
  margin: 0 0 2mm;
  padding: 0 0 0.8mm;
  font-size: 11pt;
  font-variant: small-caps;
  letter-spacing: 0.06em;
  color: var(--accent);
  border-bottom: 1.5pt solid var(--accent);
  break-after: avoid;
  page-break-after: avoid;
}
h3 {
  margin: 2.5mm 0 1mm;
  font-family: inherit;
  font-size: 9.5pt;
  color: var(--muted);
  text-transform: uppercase;
  letter-spacing: 0.08em;
  break-after: avoid;
  page-break-after: avoid;
}
.block, .list, .text { margin: 0 0 5mm; }
.block { break-inside: avoid; page-break-inside: avoid; }
.row { display: flex; gap: 7mm; align-items: flex-start; }
.row > .col { flex: 1 1 0; min-width: 0; }
.label {
  font-size: 7pt;
  text-transform: uppercase;
  letter-spacing: 0.09em;
  color: var(--muted);
}
.none { color: var(--muted); font-style: italic; }

/* header */
.head {
  display: flex;
  gap: 6mm;
  align-items: stretch;
  margin-bottom: 6mm;
  padding-bottom: 3mm;
  border-bottom: 3pt double var(--accent);
}
.head .title { flex: 1 1 auto; min-width: 0; }
.kicker { font-size: 7.5pt; letter-spacing: 0.25em; text-transform: uppercase; color: var(--accent); margin-bottom: 1mm; }
.ident { display: grid; grid-template-columns: repeat(auto-fit, minmax(30mm, 1fr)); gap: 1.5mm 4mm; margin-top: 3mm; }
.field .value {
  min-height: 1.45em;
  padding: 0.3mm 0 0.4mm;
  border-bottom: 0.75pt solid var(--rule);
  font-weight: bold;
  overflow-wrap: anywhere;
}
.assoc { margin: 2mm 0 0; color: var(--muted); font-style: italic; }
.portrait { flex: 0 0 32mm; }
.portrait img {
  display: block;
  width: 32mm;
  height: 40mm;
  object-fit: cover;
  border: 0.75pt solid var(--rule);
  padding: 1mm;
  background: var(--paper);
}

/* attribute tables */
table { width: 100%; border-collapse: collapse; }
th {
  font-size: 7pt;
  font-weight: bold;
  text-transform: uppercase;
  letter-spacing: 0.07em;
  color: var(--muted);
  text-align: left;
  padding: 1mm 1.5mm;
  border-bottom: 0.75pt solid var(--ink);
}
td { padding: 0.9mm 1.5mm; vertical-align: top; }
th.num, td.num { text-align: center; white-space: nowrap; }
table.stats tbody tr { border-bottom: 0.5pt solid var(--rule); }
table.stats td { padding: 1.2mm 1.5mm; vertical-align: middle; }
table.stats td.name { font-weight: bold; }
table.stats th:not(.name) { text-align: center; width: 17%; }
table.stats td.bonus { color: var(--muted); }
table.stats td.total span {
  display: inline-block;
  min-width: 9mm;
  padding: 0.4mm 1.5mm;
  font-size: 12pt;
  font-weight: bold;
  background: var(--tint);
  border: 0.75pt solid var(--tint-strong);
  border-radius: 1.2mm;
}
.pools { margin-top: 2mm; padding: 1.2mm 2mm; background: var(--tint); border-radius: 1mm; }
.pools .label { margin-right: 1.5mm; }

/* points */
.tiles { display: flex; flex-wrap: wrap; gap: 2mm; }
.tile {
  flex: 1 1 0;
  min-width: 20mm;
  padding: 1.2mm 2mm;
  border: 0.75pt solid var(--tint-strong);
  border-radius: 1.2mm;
  background: var(--tint);
  text-align: center;
}
.tile.xp { background: #fbf3e4; border-color: #ecdcbd; }
.tile .value { font-size: 12pt; white-space: nowrap; }
.tile .of { font-size: 9pt; color: var(--muted); }
.flags { margin-top: 2mm; }
.flag {
  display: inline-block;
  margin: 0 1.5mm 1mm 0;
  padding: 0.3mm 2mm;
  font-size: 8pt;
  border: 0.75pt solid var(--rule);
  border-radius: 3mm;
  color: var(--muted);
}
.flag.on { color: var(--paper); background: var(--accent); border-color: var(--accent); }

/* lists */
/* fixed layout keeps the columns of all lists in line, whatever they hold */
table.rows { table-layout: fixed; }
table.rows th.name { width: 30%; }
table.rows th.type { width: 10%; }
table.rows th.num { width: 7%; }
table.rows th.ref { width: 11%; }
table.rows td { overflow-wrap: break-word; vertical-align: baseline; }
table.rows thead { display: table-header-group; }
table.rows tbody tr { break-inside: avoid; page-break-inside: avoid; }
table.rows tbody tr:nth-child(even) { background: var(--tint); }
table.rows td.name { font-weight: bold; }
table.rows td.type, table.rows td.ref { white-space: nowrap; color: var(--muted); font-size: 8.5pt; }
table.rows td.notes { font-size: 8.5pt; }
table.rows tr.sep { background: none !important; }
table.rows tr.sep td { padding: 0.6mm 0 0; border-top: 0.75pt dashed var(--rule); height: 2mm; }
table.rows tr.sep td span {
  display: inline-block;
  margin-top: 1mm;
  font-size: 7.5pt;
  font-weight: bold;
  letter-spacing: 0.08em;
  text-transform: uppercase;
  color: var(--accent);
}
table.moves th.name { width: auto; }
table.moves th.num { width: 14%; }
table.moves td.name { font-weight: normal; }
table.moves tr.basic td.name, table.moves tr.basic td:nth-child(2) { font-weight: bold; }
.hint { margin-top: 1mm; font-size: 7.5pt; color: var(--muted); }

/* description */
.desc { display: grid; grid-template-columns: repeat(4, 1fr); gap: 1.5mm 4mm; }
.desc .value { font-weight: normal; }

/* styled text */
.text { break-inside: auto; }
.styled {
  padding: 2mm 3mm;
  border-left: 2pt solid var(--tint-strong);
  overflow-wrap: break-word;
  orphans: 3;
  widows: 3;
}
.styled .run { white-space: pre-wrap; }

.foot {
  margin-top: 6mm;
  padding-top: 1.5mm;
  border-top: 0.5pt solid var(--rule);
  font-size: 7pt;
  color: var(--muted);
  text-align: right;
}

@page { margin: 12mm 11mm 13mm; }
@media print {
  html { background: none; }
  .sheet { max-width: none; margin: 0; padding: 0; box-shadow: none; }
  a { color: inherit; text-decoration: none; }
  /* Pages end between sections: the header (and the portrait in it) and each small block go
     whole, a list or a text runs on between its rows and lines, and no heading or table head
     is left at the foot of a page. */
  .head, .row, tr, .tile, .field { break-inside: avoid; page-break-inside: avoid; }
  h2, h3, thead { break-after: avoid; page-break-after: avoid; }
  .foot { break-before: avoid; page-break-before: avoid; }
}
@media screen and (max-width: 700px) {
  .ident, .desc { grid-template-columns: repeat(2, 1fr); }
  .row { display: block; }
}
</xsl:template>

</xsl:stylesheet>
